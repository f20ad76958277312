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

} // namespace

std::optional<std::string> xsettingsText(std::span<const std::uint8_t> property,
                                         std::string_view name) {
    constexpr std::uint32_t integerType = 0;
    constexpr std::uint32_t textType = 1;
    constexpr std::uint32_t colorType = 2;
    Reader reader(property);
    reader.take(8); // Byte order, serial number.
    for (std::uint32_t left = reader.number(4); left > 0 && reader.isWhole(); --left) {
        const std::uint32_t type = reader.number(1);
        reader.take(1);
        const std::string_view found = reader.text(reader.number(2));
        reader.take(4); // The serial number of its last change.
        if (type > colorType) {
            return std::nullopt;
        }
        if (type != textType) {
            reader.take(type == integerType ? 4 : 8);
            continue;
        }
        const std::string_view value = reader.text(reader.number(4));
        if (reader.isWhole() && found == name) {
            return std::string(value);
        }
    }
    return std::nullopt;
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
    constexpr std::string_view property = "_XSETTINGS_SETTINGS";
    if (const auto atom = connection_.ask<xcb_intern_atom, xcb_intern_atom_reply>(
            std::uint8_t{0}, static_cast<std::uint16_t>(property.size()), property.data())) {
        settings_ = atom->atom;
    }
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
    const auto owner = connection_.ask<xcb_get_selection_owner, xcb_get_selection_owner_reply>(
        connection_.atom(X11Atom::selectionSettings));
    manager_ = owner ? owner->owner : xcb_window_t{XCB_NONE};
    if (manager_ != XCB_NONE) {
        const std::uint32_t events =
            XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_.get(), manager_, XCB_CW_EVENT_MASK, &events);
    }
    readSettings();
}

void XSettings::readSettings() {
    std::string theme;
    std::string font;
    if (manager_ != XCB_NONE) {
        const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            connection_.get(), connection_.requestProperty(manager_, settings_, longestProperty),
            nullptr));
        if (reply && reply->format == 8) {
            const std::span bytes(
                static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
            theme = xsettingsText(bytes, "Net/ThemeName").value_or("");
            font = xsettingsText(bytes, "Gtk/FontName").value_or("");
        }
    }
    const bool isOther = theme != themeName_ || font != fontName_;
    themeName_ = theme;
    fontName_ = font;
    if (isOther) {
        changed_.emit();
    }
}

} // namespace calmora
