// SPDX-License-Identifier: MIT
#include "platform/x11/hotkeys/X11HotKeys.h"

#include "platform/x11/hotkeys/X11Keyboard.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace calmora {
namespace {

/// What is grabbed: a key with modifiers, locks aside.
struct Combination {
    X11KeyCode key = 0;
    X11ModifierMask modifiers = 0;

    [[maybe_unused]] friend auto operator<=>(const Combination&, const Combination&) = default;
};

/// Passive grabs on the root window.
/// Source: X protocol, GrabKey; XInput 2 protocol, XIPassiveGrabDevice.
class Grabs {
  public:
    explicit Grabs(const X11Keyboard& keyboard)
        : keyboard_(&keyboard), modifiers_(keyboard.modifiers()) {}

    /// Success, or the first error's code. A refusal leaves no grab behind.
    [[nodiscard]] std::int32_t take(Combination combination) const {
        std::vector<xcb_void_cookie_t> cookies;
        for (const X11ModifierMask mask : masks(combination)) {
            cookies.push_back(xcb_grab_key_checked(connection(), 0, root(), mask, combination.key,
                                                   XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        }
        std::int32_t status = HotKeyStatus::success;
        for (const xcb_void_cookie_t cookie : cookies) {
            const X11Reply<xcb_generic_error_t> error(xcb_request_check(connection(), cookie));
            if (error && status == HotKeyStatus::success) {
                status = error->error_code;
            }
        }
        if (status == HotKeyStatus::success && isTakenByXInput(combination)) {
            status = HotKeyStatus::taken;
        }
        if (!keyboard_->isAlive()) {
            return HotKeyStatus::unavailable;
        }
        if (status != HotKeyStatus::success) {
            release(combination);
        }
        return status;
    }

    void release(Combination combination) const {
        for (const X11ModifierMask mask : masks(combination)) {
            xcb_ungrab_key(connection(), combination.key, root(), mask);
        }
    }

  private:
    [[nodiscard]] bool isTakenByXInput(Combination combination) const {
        const std::vector<X11ModifierMask> all = masks(combination);
        const std::vector<std::uint32_t> modifiers(all.begin(), all.end());
        const auto count = static_cast<std::uint16_t>(modifiers.size());
        const std::uint32_t eventMask = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
        const auto cookie = xcb_input_xi_passive_grab_device(
            connection(), XCB_CURRENT_TIME, root(), XCB_NONE, combination.key,
            XCB_INPUT_DEVICE_ALL_MASTER, count, 1, XCB_INPUT_GRAB_TYPE_KEYCODE,
            XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_INPUT_GRAB_OWNER_NO_OWNER,
            &eventMask, modifiers.data());
        // Sent along with it, and waited for: the probe would swallow a key pressed meanwhile.
        const auto undo = xcb_input_xi_passive_ungrab_device_checked(
            connection(), root(), combination.key, XCB_INPUT_DEVICE_ALL_MASTER, count,
            XCB_INPUT_GRAB_TYPE_KEYCODE, modifiers.data());
        const X11Reply<xcb_input_xi_passive_grab_device_reply_t> reply(
            xcb_input_xi_passive_grab_device_reply(connection(), cookie, nullptr));
        const X11Reply<xcb_generic_error_t> undone(xcb_request_check(connection(), undo));
        // The answer lists the combinations that failed.
        return !reply || reply->num_modifiers > 0;
    }

    [[nodiscard]] std::vector<X11ModifierMask> masks(Combination combination) const {
        std::vector<X11ModifierMask> result = modifiers_.lockVariants();
        for (X11ModifierMask& mask : result) {
            mask = static_cast<X11ModifierMask>(mask | combination.modifiers);
        }
        return result;
    }

    [[nodiscard]] xcb_connection_t* connection() const { return keyboard_->connection().get(); }

    [[nodiscard]] xcb_window_t root() const { return keyboard_->connection().root(); }

    const X11Keyboard* keyboard_;
    // Grabs are released with the locks with which they were taken.
    X11Modifiers modifiers_;
};

} // namespace

struct X11HotKeys::State {
    struct Entry {
        X11KeyCode key = 0;
        std::uint32_t carbonModifiers = 0;
        HotKeyIdentifier identifier;
        /// Absent while the modifiers do not exist, or another client has the combination since
        /// they moved.
        std::optional<Combination> grabbed;
    };

    X11Keyboard& keyboard;
    Grabs grabs{keyboard};
    std::map<std::uint64_t, Entry> entries;
    std::uint64_t nextEntry = 0;
    /// Keys that are down, with the hot keys that they fired.
    std::map<X11KeyCode, std::vector<HotKeyIdentifier>> held;
    /// Tracked while raw keys are reported: their events have no modifiers.
    std::set<X11KeyCode> down;
    Handler handler;
    bool tellsHotKeys = false;
    bool tellsRawKeys = false;
    std::vector<Subscription> keyboardEvents;

    explicit State(X11Keyboard& someKeyboard) : keyboard(someKeyboard) {}

    [[nodiscard]] bool isGrabbed(Combination combination) const {
        return std::ranges::any_of(
            entries, [&](const auto& entry) { return entry.second.grabbed == combination; });
    }

    [[nodiscard]] std::int32_t grab(Entry& entry) const {
        const auto modifiers = keyboard.modifiers().fromCarbon(entry.carbonModifiers);
        if (!modifiers) {
            return HotKeyStatus::badValue;
        }
        const Combination combination{entry.key, *modifiers};
        const std::int32_t status =
            isGrabbed(combination) ? HotKeyStatus::success : grabs.take(combination);
        if (status == HotKeyStatus::success) {
            entry.grabbed = combination;
        }
        return status;
    }

    void ungrab(Entry& entry) const {
        if (const auto combination = std::exchange(entry.grabbed, std::nullopt);
            combination && !isGrabbed(*combination)) {
            grabs.release(*combination);
        }
    }

    void regrab() {
        for (auto& [id, entry] : entries) {
            ungrab(entry);
        }
        grabs = Grabs(keyboard);
        for (auto& [id, entry] : entries) {
            static_cast<void>(grab(entry));
        }
        keyboard.flush();
    }

    void tell(HotKeyEventKind kind, HotKeyIdentifier identifier) const {
        if (tellsHotKeys && handler) {
            const Handler copy = handler;
            HotKeyEvent event;
            event.kind = kind;
            event.identifier = identifier;
            copy(event);
        }
    }

    void selectRawKeys() const {
        keyboard.selectRawKeys(tellsRawKeys, tellsRawKeys || !held.empty());
    }

    void press(const xcb_key_press_event_t& event, bool isTooLate) {
        xcb_connection_t* connection = keyboard.connection().get();
        // The grab of the pressed key would keep the whole keyboard until its release.
        xcb_ungrab_keyboard(connection, event.time);
        const X11KeyCode key = event.detail;
        const Combination combination{key, keyboard.modifiers().withoutLocks(event.state)};
        if (held.contains(key)) {
            keyboard.flush();
            return; // it repeats
        }
        std::vector<HotKeyIdentifier> fired;
        for (const auto& [id, entry] : entries) {
            if (entry.grabbed == combination && !isTooLate) {
                fired.push_back(entry.identifier);
            }
        }
        if (fired.empty() && !isTooLate) {
            keyboard.flush();
            return;
        }
        held.emplace(key, fired);
        selectRawKeys();
        const bool isUp = !keyboard.keysDown().contains(key);
        for (const HotKeyIdentifier identifier : fired) {
            tell(HotKeyEventKind::hotKeyPressed, identifier);
        }
        if (isUp) {
            release(key);
        }
    }

    void release(X11KeyCode key) {
        if (const auto node = held.extract(key)) {
            selectRawKeys();
            for (const HotKeyIdentifier identifier : node.mapped()) {
                tell(HotKeyEventKind::hotKeyReleased, identifier);
            }
        }
    }

    void rawKey(X11KeyCode key, bool isDown) {
        if (!isDown) {
            release(key);
        }
        const bool isNews = isDown ? down.insert(key).second : down.erase(key) == 1;
        const auto keyCode = virtualKeyCode(key);
        if (!tellsRawKeys || !handler || !isNews || !keyCode) {
            return;
        }
        HotKeyEvent event;
        event.kind = isDown ? HotKeyEventKind::rawKeyDown : HotKeyEventKind::rawKeyUp;
        event.keyCode = static_cast<std::uint32_t>(*keyCode);
        event.keyModifiers =
            keyboard.modifiers().toCarbon(heldModifiers(keyboard.modifierKeys(), down));
        const Handler copy = handler;
        copy(event);
    }

    void close() {
        while (!held.empty()) {
            release(held.begin()->first);
        }
    }
};

X11HotKeys::X11HotKeys(X11Keyboard& keyboard) : state_(std::make_shared<State>(keyboard)) {
    const auto guarded = [weak = std::weak_ptr(state_)](auto action) {
        return [weak, action](auto&&... arguments) {
            if (const auto state = weak.lock()) {
                action(*state, arguments...);
            }
        };
    };
    auto& events = state_->keyboardEvents;
    events.push_back(
        keyboard.onKeyPress(guarded([](State& state, const xcb_key_press_event_t& event,
                                       bool isTooLate) { state.press(event, isTooLate); })));
    events.push_back(keyboard.onRawKey(
        guarded([](State& state, X11KeyCode key, bool isDown) { state.rawKey(key, isDown); })));
    events.push_back(keyboard.onModifiersChanged(guarded([](State& state) { state.regrab(); })));
    events.push_back(keyboard.onClosed(guarded([](State& state) { state.close(); })));
}

X11HotKeys::~X11HotKeys() {
    state_->handler = nullptr;
    state_->keyboardEvents.clear();
}

std::optional<std::string> X11HotKeys::unavailableReason() const {
    if (state_->keyboard.isAlive()) {
        return std::nullopt;
    }
    return "Shortcuts are not available, because there is no X server.";
}

HotKeyRegistration X11HotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                              HotKeyIdentifier identifier) {
    if (!state_->keyboard.isAlive()) {
        return {HotKeyStatus::unavailable, {}};
    }
    const auto key = x11KeyCode(keyCode);
    if (!key || isLockKey(keyCode)) {
        return {HotKeyStatus::badValue, {}};
    }
    State::Entry entry{*key, modifiers, identifier, {}};
    const std::int32_t status = state_->grab(entry);
    state_->keyboard.flush();
    if (status != HotKeyStatus::success) {
        return {status, {}};
    }
    const std::uint64_t id = state_->nextEntry++;
    state_->entries.emplace(id, entry);
    return {HotKeyStatus::success, Subscription([weak = std::weak_ptr(state_), id] {
                if (const auto state = weak.lock()) {
                    if (auto node = state->entries.extract(id)) {
                        state->ungrab(node.mapped());
                        state->keyboard.flush();
                    }
                }
            })};
}

Subscription X11HotKeys::installEventHandler(Handler handler) {
    if (!state_->keyboard.isAlive()) {
        return {};
    }
    state_->handler = std::move(handler);
    return Subscription([weak = std::weak_ptr(state_)] {
        if (const auto state = weak.lock()) {
            state->handler = nullptr;
        }
    });
}

void X11HotKeys::addEventTypes(HotKeyEventTypes types) {
    if (types == HotKeyEventTypes::hotKeys) {
        state_->tellsHotKeys = true;
    } else if (!std::exchange(state_->tellsRawKeys, true)) {
        state_->selectRawKeys();
        state_->down = state_->keyboard.keysDown();
    }
}

void X11HotKeys::removeEventTypes(HotKeyEventTypes types) {
    (types == HotKeyEventTypes::hotKeys ? state_->tellsHotKeys : state_->tellsRawKeys) = false;
    state_->selectRawKeys();
}

} // namespace calmora
