#include "platform/x11/hotkeys/X11Keyboard.h"

#include "platform/linux/EventPoll.h"
#include "platform/x11/hotkeys/X11ModifierMap.h"
#include "platform/x11/hotkeys/XcbXkb.h"

#include <utility>

namespace calmora {

struct X11Keyboard::State {
    EventPoll& poll;
    X11Connection connection;
    bool isUsable = false;
    std::uint8_t xkbEvent = 0;
    std::uint8_t xinputOpcode = 0;
    X11ModifierMap map;
    std::uint32_t rawMask = 0;
    bool isStale = false;
    Subscription watch;
    Subscription drainLater;

    Signal<const xcb_key_press_event_t&, bool> keyPress;
    Signal<X11KeyCode, bool> rawKey;
    Signal<> modifiersChanged;
    Signal<> layoutChanged;
    Signal<> closed;

    State(EventPoll& somePoll, const std::string& display) : poll(somePoll), connection(display) {}

    bool setUp() {
        if (!connection.isAlive()) {
            return false;
        }
        xcb_connection_t* c = connection.get();
        const auto* xkb = xcb_get_extension_data(c, &xcb_xkb_id);
        const auto* xinput = xcb_get_extension_data(c, &xcb_input_id);
        if (!xkb || !xinput || xkb->present == 0 || xinput->present == 0) {
            return false;
        }
        xkbEvent = xkb->first_event;
        xinputOpcode = xinput->major_opcode;
        const auto xkbCookie =
            xcb_xkb_use_extension(c, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
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
        map = readModifierMap(connection);
        return connection.isAlive();
    }

    void selectXkbEvents() const {
        constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY |
                                         XCB_XKB_EVENT_TYPE_MAP_NOTIFY |
                                         XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
        constexpr std::uint16_t parts =
            XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP |
            XCB_XKB_MAP_PART_VIRTUAL_MODS | XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
        xcb_xkb_select_events_details_t details{};
        details.affectNewKeyboard = XCB_XKB_NKN_DETAIL_KEYCODES;
        details.newKeyboardDetails = details.affectNewKeyboard;
        details.affectState = XCB_XKB_STATE_PART_GROUP_STATE;
        details.stateDetails = details.affectState;
        xcb_xkb_select_events_aux(connection.get(), XCB_XKB_ID_USE_CORE_KBD, events, 0, 0, parts,
                                  parts, &details);
    }

    void sort(const xcb_generic_event_t& event, bool dropsPresses) {
        const std::uint8_t type = eventType(event);
        if (type == XCB_KEY_PRESS) {
            keyPress.emit(eventAs<xcb_key_press_event_t>(event), dropsPresses);
        } else if (type == XCB_MAPPING_NOTIFY) {
            isStale = true;
        } else if (type == XCB_GE_GENERIC) {
            sortRawKey(eventAs<xcb_ge_generic_event_t>(event), dropsPresses);
        } else if (type == xkbEvent) {
            sortXkb(event);
        }
    }

    void sortRawKey(const xcb_ge_generic_event_t& event, bool dropsPresses) const {
        const bool isDown = event.event_type == XCB_INPUT_RAW_KEY_PRESS;
        const bool isUp = event.event_type == XCB_INPUT_RAW_KEY_RELEASE;
        if (event.extension == xinputOpcode && (isUp || (isDown && !dropsPresses))) {
            const auto& key = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
            rawKey.emit(static_cast<X11KeyCode>(key.detail), isDown);
        }
    }

    void sortXkb(const xcb_generic_event_t& event) {
        // Every XKB event has its own type where core events have their detail.
        const std::uint8_t xkbType = event.pad0;
        isStale =
            isStale || xkbType == XCB_XKB_NEW_KEYBOARD_NOTIFY || xkbType == XCB_XKB_MAP_NOTIFY;
        if (xkbType == XCB_XKB_STATE_NOTIFY) {
            layoutChanged.emit();
        }
    }

    /// The events come for a key of another keyboard, too, so look for an actual change.
    void refresh() {
        isStale = false;
        const X11ModifierMap now = readModifierMap(connection);
        if (!connection.isAlive()) {
            return;
        }
        const X11ModifierMap before = std::exchange(map, now);
        if (before.modifiers != now.modifiers) {
            modifiersChanged.emit();
        }
        layoutChanged.emit();
    }

    /// One look-up for several changes in a row.
    void drain(bool dropsPresses = false) {
        for (bool isSettled = false; !isSettled;) {
            while (
                const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection.get())}) {
                sort(*event, dropsPresses);
            }
            isSettled = !isStale || !isUsable;
            if (!isSettled) {
                refresh();
            }
        }
        xcb_flush(connection.get());
        if (isUsable && !connection.isAlive()) {
            isUsable = false;
            watch.reset();
            closed.emit();
        }
    }
};

X11Keyboard::X11Keyboard(EventPoll& poll, const std::string& display)
    : state_(std::make_shared<State>(poll, display)) {
    state_->isUsable = state_->setUp();
    if (state_->isUsable) {
        state_->watch = poll.watch(state_->connection.descriptor(), [weak = std::weak_ptr(state_)] {
            if (const auto state = weak.lock()) {
                state->drain();
            }
        });
        flush();
    }
}

X11Keyboard::~X11Keyboard() {
    // A drain() on the stack may keep the state alive; it must not emit any more.
    state_->watch.reset();
    state_->drainLater.reset();
    state_->isUsable = false;
}

bool X11Keyboard::isAlive() const {
    return state_->isUsable && state_->connection.isAlive();
}

const X11Connection& X11Keyboard::connection() const {
    return state_->connection;
}

const X11Modifiers& X11Keyboard::modifiers() const {
    return state_->map.modifiers;
}

const X11ModifierKeys& X11Keyboard::modifierKeys() const {
    return state_->map.keys;
}

std::set<X11KeyCode> X11Keyboard::keysDown() {
    std::set<X11KeyCode> down;
    if (!isAlive()) {
        return down;
    }
    xcb_connection_t* c = state_->connection.get();
    const X11Reply<xcb_query_keymap_reply_t> keymap(
        xcb_query_keymap_reply(c, xcb_query_keymap(c), nullptr));
    flush();
    for (unsigned key = 0; keymap && key < 256; ++key) {
        if ((keymap->keys[key / 8] & (1U << (key % 8))) != 0) {
            down.insert(static_cast<X11KeyCode>(key));
        }
    }
    return down;
}

void X11Keyboard::flush() {
    if (!state_->isUsable) {
        return;
    }
    xcb_flush(state_->connection.get());
    // Events that came with a reply are in memory, which the descriptor does not show.
    state_->drainLater = state_->poll.later([weak = std::weak_ptr(state_)] {
        if (const auto state = weak.lock()) {
            state->drain();
        }
    });
}

void X11Keyboard::selectRawKeys(bool presses, bool releases) {
    std::uint32_t mask = 0;
    if (presses) {
        mask |= XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS;
    }
    if (releases) {
        mask |= XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    }
    if (!isAlive() || std::exchange(state_->rawMask, mask) == mask) {
        return;
    }

    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, mask};

    xcb_input_xi_select_events(state_->connection.get(), state_->connection.root(), 1,
                               &selection.head);
    flush();
}

void X11Keyboard::discardKeyPresses() {
    if (isAlive()) {
        // Earlier events are here when the server answers.
        const X11Reply<xcb_get_input_focus_reply_t> answer(xcb_get_input_focus_reply(
            state_->connection.get(), xcb_get_input_focus(state_->connection.get()), nullptr));
        const auto state = state_;
        state->drain(/*dropsPresses=*/true);
    }
}

Subscription X11Keyboard::onKeyPress(std::function<void(const xcb_key_press_event_t&, bool)> slot) {
    return state_->keyPress.connect(std::move(slot));
}

Subscription X11Keyboard::onRawKey(std::function<void(X11KeyCode, bool)> slot) {
    return state_->rawKey.connect(std::move(slot));
}

Subscription X11Keyboard::onModifiersChanged(std::function<void()> slot) {
    return state_->modifiersChanged.connect(std::move(slot));
}

Subscription X11Keyboard::onLayoutChanged(std::function<void()> slot) {
    return state_->layoutChanged.connect(std::move(slot));
}

Subscription X11Keyboard::onClosed(std::function<void()> slot) {
    return state_->closed.connect(std::move(slot));
}

} // namespace calmora
