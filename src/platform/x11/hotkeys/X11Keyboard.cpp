// SPDX-License-Identifier: MIT
#include "platform/x11/hotkeys/X11Keyboard.h"

#include "platform/linux/EventPoll.h"
#include "platform/x11/hotkeys/XcbXkb.h"

namespace calmora {

X11Keyboard::X11Keyboard(EventPoll& poll, const std::string& display)
    : poll_(poll), connection_(display), isUsable_(setUp()) {
    if (isUsable_) {
        watch_ = poll_.watch(connection_.descriptor(), [this] { drain(); });
        flush();
    }
}

bool X11Keyboard::setUp() {
    if (!connection_.isAlive()) {
        return false;
    }
    xcb_connection_t* c = connection_.get();
    const auto* xkb = xcb_get_extension_data(c, &xcb_xkb_id);
    const auto* xinput = xcb_get_extension_data(c, &xcb_input_id);
    if (!xkb || !xinput || xkb->present == 0 || xinput->present == 0) {
        return false;
    }
    xkbEvent_ = xkb->first_event;
    xinputOpcode_ = xinput->major_opcode;
    const auto xkbCookie = xcb_xkb_use_extension(c, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    const auto xinputCookie = xcb_input_xi_query_version(c, 2, 2);
    const X11Reply<xcb_xkb_use_extension_reply_t> hasXkb(
        xcb_xkb_use_extension_reply(c, xkbCookie, nullptr));
    const X11Reply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(c, xinputCookie, nullptr));
    // From 2.1 on raw events come in spite of other clients' grabs.
    const bool hasRawKeys =
        version && (version->major_version > 2 ||
                    (version->major_version == 2 && version->minor_version >= 1));
    if (!hasXkb || hasXkb->supported == 0 || !hasRawKeys) {
        return false;
    }
    selectXkbEvents();
    map_ = readModifierMap(connection_);
    return connection_.isAlive();
}

void X11Keyboard::selectXkbEvents() const {
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY |
                                     XCB_XKB_EVENT_TYPE_MAP_NOTIFY |
                                     XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t parts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                    XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS |
                                    XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    xcb_xkb_select_events_details_t details{};
    details.affectNewKeyboard = XCB_XKB_NKN_DETAIL_KEYCODES;
    details.newKeyboardDetails = details.affectNewKeyboard;
    details.affectState = XCB_XKB_STATE_PART_GROUP_STATE;
    details.stateDetails = details.affectState;
    xcb_xkb_select_events_aux(connection_.get(), XCB_XKB_ID_USE_CORE_KBD, events, 0, 0, parts,
                              parts, &details);
}

void X11Keyboard::sort(const xcb_generic_event_t& event, bool dropsPresses) {
    const std::uint8_t type = eventType(event);
    if (type == XCB_KEY_PRESS) {
        keyPress_.emit(eventAs<xcb_key_press_event_t>(event), dropsPresses);
    } else if (type == XCB_MAPPING_NOTIFY) {
        isStale_ = true;
    } else if (type == XCB_GE_GENERIC) {
        sortRawKey(eventAs<xcb_ge_generic_event_t>(event), dropsPresses);
    } else if (type == xkbEvent_) {
        sortXkb(event);
    }
}

void X11Keyboard::sortRawKey(const xcb_ge_generic_event_t& event, bool dropsPresses) const {
    const bool isDown = event.event_type == XCB_INPUT_RAW_KEY_PRESS;
    const bool isUp = event.event_type == XCB_INPUT_RAW_KEY_RELEASE;
    if (event.extension == xinputOpcode_ && (isUp || (isDown && !dropsPresses))) {
        const auto& key = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
        rawKey_.emit(static_cast<X11KeyCode>(key.detail), isDown);
    }
}

void X11Keyboard::sortXkb(const xcb_generic_event_t& event) {
    // Every XKB event has its own type where core events have their detail.
    const std::uint8_t xkbType = event.pad0;
    isStale_ = isStale_ || xkbType == XCB_XKB_NEW_KEYBOARD_NOTIFY || xkbType == XCB_XKB_MAP_NOTIFY;
    if (xkbType == XCB_XKB_STATE_NOTIFY) {
        layoutChanged_.emit();
    }
}

/// The events come for a key of another keyboard, too, so look for an actual change.
void X11Keyboard::refresh() {
    isStale_ = false;
    const X11ModifierMap now = readModifierMap(connection_);
    if (!connection_.isAlive()) {
        return;
    }
    const X11ModifierMap before = std::exchange(map_, now);
    if (before.modifiers != now.modifiers) {
        modifiersChanged_.emit();
    }
    layoutChanged_.emit();
}

/// One look-up for several changes in a row.
void X11Keyboard::drain(bool dropsPresses) {
    for (bool isSettled = false; !isSettled;) {
        while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
            sort(*event, dropsPresses);
        }
        isSettled = !isStale_ || !isUsable_;
        if (!isSettled) {
            refresh();
        }
    }
    xcb_flush(connection_.get());
    if (isUsable_ && !connection_.isAlive()) {
        isUsable_ = false;
        watch_.reset();
        closed_.emit();
    }
}

std::set<X11KeyCode> X11Keyboard::keysDown() {
    std::set<X11KeyCode> down;
    if (!isAlive()) {
        return down;
    }
    const auto keymap = connection_.ask<xcb_query_keymap, xcb_query_keymap_reply>();
    flush();
    for (unsigned key = 0; keymap && key < 256; ++key) {
        if ((keymap->keys[key / 8] & (1U << (key % 8))) != 0) {
            down.insert(static_cast<X11KeyCode>(key));
        }
    }
    return down;
}

void X11Keyboard::flush() {
    if (isUsable_) {
        xcb_flush(connection_.get());
        // Events that came with a reply are in memory, which the descriptor does not show.
        drainLater_ = poll_.later([this] { drain(); });
    }
}

void X11Keyboard::selectRawKeys(bool presses, bool releases) {
    const std::uint32_t press = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS;
    const std::uint32_t release = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    const std::uint32_t mask = (presses ? press : 0) | (releases ? release : 0);
    if (!isAlive() || std::exchange(rawMask_, mask) == mask) {
        return;
    }

    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, mask};

    xcb_input_xi_select_events(connection_.get(), connection_.root(), 1, &selection.head);
    flush();
}

void X11Keyboard::discardKeyPresses() {
    if (isAlive()) {
        // Earlier events are here when the server answers.
        static_cast<void>(connection_.ask<xcb_get_input_focus, xcb_get_input_focus_reply>());
        drain(/*dropsPresses=*/true);
    }
}

} // namespace calmora
