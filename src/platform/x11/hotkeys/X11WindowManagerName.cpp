#include "platform/x11/hotkeys/X11WindowManagerName.h"

#include "platform/x11/X11Connection.h"

#include <string_view>

namespace calmora {

std::string windowManagerName(const X11Connection& connection) {
    if (!connection.isAlive()) {
        return {};
    }
    xcb_connection_t* c = connection.get();
    constexpr std::string_view nameAtom = "_NET_WM_NAME";
    const auto atomCookie = xcb_intern_atom(c, 0, nameAtom.size(), nameAtom.data());
    const X11Reply<xcb_get_property_reply_t> check(xcb_get_property_reply(
        c,
        connection.requestProperty(connection.root(),
                                   connection.atom(X11Atom::netSupportingWmCheck), 1),
        nullptr));
    const X11Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(c, atomCookie, nullptr));
    if (!atom || words(check).empty()) {
        return {};
    }
    constexpr std::uint32_t longest = 64;
    const X11Reply<xcb_get_property_reply_t> name(xcb_get_property_reply(
        c, connection.requestProperty(words(check).front(), atom->atom, longest), nullptr));
    return text(name);
}

} // namespace calmora
