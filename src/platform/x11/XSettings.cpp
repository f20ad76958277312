// SPDX-License-Identifier: MIT
#include "platform/x11/XSettings.h"

#include "platform/linux/EventPoll.h"
#include "support/TextHelpers.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>
#include <utility>

namespace calmora {
namespace {

/// In words of 32 bits; managers keep a few thousand bytes.
constexpr std::uint32_t longestProperty = 256 * 1024 / 4;

/// Reads numbers in the byte order that the property names. Past the end it reads zeros, and
/// isWhole() is false.
class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> bytes)
        : rest_(bytes), isBigEndian_(!bytes.empty() && bytes.front() != 0) {}

    [[nodiscard]] bool isWhole() const { return isWhole_; }

    [[nodiscard]] std::uint32_t number(std::size_t size) {
        std::uint32_t value = 0;
        const auto bytes = take(size);
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            value = value << 8U | bytes[isBigEndian_ ? i : bytes.size() - 1 - i];
        }
        return value;
    }

    /// A text, and what fills it up to a multiple of four bytes.
    [[nodiscard]] std::string_view text(std::size_t size) {
        const auto bytes = take(size);
        static_cast<void>(take((4 - size % 4) % 4));
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }

    std::span<const std::uint8_t> take(std::size_t size) {
        isWhole_ = isWhole_ && size <= rest_.size();
        const auto taken = isWhole_ ? rest_.first(size) : std::span<const std::uint8_t>();
        rest_ = isWhole_ ? rest_.subspan(size) : taken;
        return taken;
    }

  private:
    std::span<const std::uint8_t> rest_;
    bool isBigEndian_;
    bool isWhole_ = true;
};

constexpr std::uint32_t integerType = 0;
constexpr std::uint32_t textType = 1;
constexpr std::uint32_t colorType = 2;

struct Setting {
    std::uint32_t type = integerType;
    /// Of an integer, and of a text.
    std::uint32_t number = 0;
    std::string_view text = {};
};

/// Absent when it is missing, or the property is damaged before it.
std::optional<Setting> findSetting(std::span<const std::uint8_t> property, std::string_view name) {
    Reader reader(property);
    reader.take(8); // Byte order, serial number.
    for (std::uint32_t left = reader.number(4); left > 0 && reader.isWhole(); --left) {
        Setting setting{.type = reader.number(1)};
        reader.take(1);
        const std::string_view found = reader.text(reader.number(2));
        reader.take(4); // The serial number of its last change.
        if (setting.type > colorType) {
            return std::nullopt;
        }
        if (setting.type == colorType) {
            reader.take(8);
        } else {
            setting.number = reader.number(4);
        }
        if (setting.type == textType) {
            setting.text = reader.text(setting.number);
        }
        if (reader.isWhole() && found == name) {
            return setting;
        }
    }
    return std::nullopt;
}

xcb_atom_t settingsAtom(const X11Connection& connection) {
    constexpr std::string_view property = "_XSETTINGS_SETTINGS";
    const auto atom = connection.ask<xcb_intern_atom, xcb_intern_atom_reply>(
        std::uint8_t{0}, static_cast<std::uint16_t>(property.size()), property.data());
    return atom ? atom->atom : xcb_atom_t{XCB_NONE};
}

/// The manager's window; none without a manager.
xcb_window_t settingsManager(const X11Connection& connection) {
    const auto owner = connection.ask<xcb_get_selection_owner, xcb_get_selection_owner_reply>(
        connection.atom(X11Atom::selectionSettings));
    return owner ? owner->owner : xcb_window_t{XCB_NONE};
}

X11Reply<xcb_get_property_reply_t> readProperty(const X11Connection& connection,
                                                xcb_atom_t settings, xcb_window_t manager) {
    return X11Reply<xcb_get_property_reply_t>(
        manager == XCB_NONE
            ? nullptr
            : xcb_get_property_reply(connection.get(),
                                     connection.requestProperty(manager, settings, longestProperty),
                                     nullptr));
}

std::span<const std::uint8_t> bytesOf(const X11Reply<xcb_get_property_reply_t>& reply) {
    if (!reply || reply->format != 8) {
        return {};
    }
    return {static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

} // namespace

std::optional<std::string> xsettingsText(std::span<const std::uint8_t> property,
                                         std::string_view name) {
    const auto setting = findSetting(property, name);
    return setting && setting->type == textType ? std::optional(std::string(setting->text))
                                                : std::nullopt;
}

int unseenWindowScale(std::span<const std::uint8_t> property) {
    constexpr std::uint32_t largest = 8;
    constexpr std::uint32_t unitsPerDot = 1024;
    constexpr std::uint32_t usualResolution = 96;
    const auto number = [&](std::string_view name) {
        const auto setting = findSetting(property, name);
        return setting && setting->type == integerType ? setting->number : 0;
    };
    const std::uint32_t scale = number("Gdk/WindowScalingFactor");
    const bool isInFonts = number("Xft/DPI") / unitsPerDot >= usualResolution * scale;
    return scale > 1 && scale <= largest && !isInFonts ? static_cast<int>(scale) : 1;
}

int readUnseenWindowScale() {
    const X11Connection connection;
    if (!connection.isAlive()) {
        return 1;
    }
    const auto reply =
        readProperty(connection, settingsAtom(connection), settingsManager(connection));
    return unseenWindowScale(bytesOf(reply));
}

bool namesDarkTheme(std::string_view theme) {
    const std::string name = loweredAscii(theme);
    if (name.ends_with("inverse") || name == "blackmate") {
        return true;
    }
    constexpr std::string_view separators = "-_: ";
    for (std::size_t start = 0; start <= name.size();) {
        const std::size_t end = std::min(name.find_first_of(separators, start), name.size());
        if (std::string_view(name).substr(start, end - start) == "dark") {
            return true;
        }
        start = end + 1;
    }
    return false;
}

std::optional<double> namedFontPoints(std::string_view font) {
    constexpr double pixelsPerPoint = 96.0 / 72;
    constexpr double largest = 200;
    const std::string_view size = font.substr(font.find_last_of(' ') + 1);
    double value = 0;
    const auto [end, error] = std::from_chars(size.data(), size.data() + size.size(), value);
    const std::string_view unit = size.substr(static_cast<std::size_t>(end - size.data()));
    if (error != std::errc() || !(unit.empty() || unit == "px") ||
        !(value > 0 && value < largest)) {
        return std::nullopt;
    }
    return unit.empty() ? value : value / pixelsPerPoint;
}

XSettings::XSettings(EventPoll& poll, const std::string& display) : connection_(display) {
    if (!connection_.isAlive()) {
        return;
    }
    settings_ = settingsAtom(connection_);
    // A new manager announces itself to the root window (ICCCM 2.8).
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_.get(), connection_.root(), XCB_CW_EVENT_MASK, &events);
    findManager();
    watch_ = poll.watch(connection_.descriptor(), [this] { readEvents(); });
    readEvents();
}

void XSettings::readEvents() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        const std::uint8_t type = eventType(*event);
        if (type == XCB_PROPERTY_NOTIFY &&
            eventAs<xcb_property_notify_event_t>(*event).atom == settings_) {
            readSettings();
        } else if (type == XCB_DESTROY_NOTIFY ||
                   (type == XCB_CLIENT_MESSAGE &&
                    eventAs<xcb_client_message_event_t>(*event).type ==
                        connection_.atom(X11Atom::manager))) {
            findManager();
        }
    }
    if (!connection_.isAlive()) {
        watch_.reset();
    }
}

void XSettings::findManager() {
    manager_ = settingsManager(connection_);
    if (manager_ != XCB_NONE) {
        const std::uint32_t events =
            XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_.get(), manager_, XCB_CW_EVENT_MASK, &events);
    }
    readSettings();
}

void XSettings::readSettings() {
    const auto reply = readProperty(connection_, settings_, manager_);
    const auto bytes = bytesOf(reply);
    const std::string theme = xsettingsText(bytes, "Net/ThemeName").value_or("");
    const std::string font = xsettingsText(bytes, "Gtk/FontName").value_or("");
    const bool isOther = theme != themeName_ || font != fontName_;
    themeName_ = theme;
    fontName_ = font;
    if (isOther) {
        changed_.emit();
    }
}

} // namespace calmora
