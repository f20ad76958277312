// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace calmora {

class EventPoll;

/// The value of a setting that is a text, from the property that a settings manager keeps. Absent
/// when it is missing, no text, or the property is damaged before it.
/// Source: freedesktop XSETTINGS, "Format of the _XSETTINGS_SETTINGS property".
[[nodiscard]] std::optional<std::string> xsettingsText(std::span<const std::uint8_t> property,
                                                       std::string_view name);

/// How many times larger than its pixels a desktop draws windows without enlarging its resolution
/// of fonts, from the property that a settings manager keeps; 1 for all others. Toolkits that
/// follow only that resolution, such as Qt, do not see it. Source: Xfce, Gdk/WindowScalingFactor;
/// MATE and GNOME enlarge both.
[[nodiscard]] int unseenWindowScale(std::span<const std::uint8_t> property);

/// The same on the display of the environment; 1 without an X server.
[[nodiscard]] int readUnseenWindowScale();

/// Whether a theme of this name is dark, as far as its name says so: "Adwaita-dark", "Arc-Dark",
/// "HighContrastInverse"; not "Arc-Darker", which is light.
[[nodiscard]] bool namesDarkTheme(std::string_view theme);

/// The size in points of a font that a setting names, as "Noto Sans Bold 10.5"; a size in pixels,
/// as "Sans 12px", counts at 96 to the inch. Absent for a text without a size, or one that no font
/// has. Source: Pango, pango_font_description_from_string().
[[nodiscard]] std::optional<double> namedFontPoints(std::string_view font);

/// What the session's settings manager says, followed while it changes and while managers come and
/// go. Without an X server or a manager it says nothing. Main thread.
class XSettings {
  public:
    /// Connects to `display`; empty means that of the environment. `poll` must outlive the object.
    explicit XSettings(EventPoll& poll, const std::string& display = {});
    XSettings(const XSettings&) = delete;
    XSettings& operator=(const XSettings&) = delete;

    /// The name of the theme (Net/ThemeName); empty when nobody says.
    [[nodiscard]] const std::string& themeName() const { return themeName_; }

    /// The desktop's font with its size (Gtk/FontName); empty when nobody says.
    [[nodiscard]] const std::string& fontName() const { return fontName_; }

    /// Called when another theme or font is named. The handler must not destroy this object.
    [[nodiscard]] Subscription onChanged(std::function<void()> handler) {
        return changed_.connect(std::move(handler));
    }

  private:
    void readEvents();
    void findManager();
    void readSettings();

    X11Connection connection_;
    xcb_atom_t settings_ = XCB_NONE;
    xcb_window_t manager_ = XCB_NONE;
    std::string themeName_;
    std::string fontName_;
    Signal<> changed_;
    Subscription watch_;
};

} // namespace calmora
