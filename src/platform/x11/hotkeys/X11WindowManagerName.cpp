#include "platform/x11/hotkeys/X11WindowManagerName.h"

#include "platform/x11/X11Connection.h"

namespace calmora {

std::string windowManagerName(const X11Connection& connection) {
    if (!connection.isAlive()) {
        return {};
    }
    const auto read = [&](xcb_window_t window, X11Atom property, std::uint32_t words) {
        return X11Reply<xcb_get_property_reply_t>(xcb_get_property_reply(
            connection.get(), connection.requestProperty(window, connection.atom(property), words),
            nullptr));
    };
    const auto check = read(connection.root(), X11Atom::netSupportingWmCheck, 1);
    constexpr std::uint32_t longest = 64;
    return words(check).empty() ? std::string()
                                : text(read(words(check).front(), X11Atom::netWmName, longest));
}

} // namespace calmora
