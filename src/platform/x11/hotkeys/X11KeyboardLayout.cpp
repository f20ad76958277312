#include "platform/x11/hotkeys/X11KeyboardLayout.h"

#include "platform/linux/keyboard/AsciiKeymap.h"
#include "platform/x11/hotkeys/X11Keyboard.h"
#include "platform/x11/hotkeys/XcbXkb.h"
#include "support/Signal.h"

#include <utility>
#include <xkbcommon/xkbcommon-x11.h>

namespace calmora {

struct X11KeyboardLayout::State {
    X11Keyboard& keyboard;
    XkbContext context = makeXkbContext();
    /// Null until it is read.
    XkbKeymap keymap;
    xkb_layout_index_t layout = 0;
    Signal<> changed;
    Subscription layoutChanges;

    explicit State(X11Keyboard& someKeyboard) : keyboard(someKeyboard) {}

    void read() {
        if (!context) {
            return;
        }
        readFromServer();
        if (!keymap) {
            constexpr xkb_rule_names american{"evdev", "pc105", "us", "", ""};
            keymap.reset(
                xkb_keymap_new_from_names(context.get(), &american, XKB_KEYMAP_COMPILE_NO_FLAGS));
            layout = 0;
        }
    }

  private:
    void readFromServer() {
        if (!keyboard.isAlive()) {
            return;
        }
        xcb_connection_t* connection = keyboard.connection().get();
        const std::int32_t device = xkb_x11_get_core_keyboard_device_id(connection);
        if (device < 0) {
            return;
        }
        XkbKeymap serverKeymap(xkb_x11_keymap_new_from_device(context.get(), connection, device,
                                                              XKB_KEYMAP_COMPILE_NO_FLAGS));
        const X11Reply<xcb_xkb_get_state_reply_t> state(xcb_xkb_get_state_reply(
            connection, xcb_xkb_get_state(connection, XCB_XKB_ID_USE_CORE_KBD), nullptr));
        keyboard.flush();
        if (!serverKeymap || !state) {
            return;
        }
        if (const auto found = asciiLayout(*serverKeymap, state->group)) {
            keymap = std::move(serverKeymap);
            layout = *found;
        }
    }
};

X11KeyboardLayout::X11KeyboardLayout(X11Keyboard& keyboard)
    : state_(std::make_unique<State>(keyboard)) {
    state_->layoutChanges = keyboard.onLayoutChanged([state = state_.get()] {
        state->keymap.reset();
        state->changed.emit();
    });
}

X11KeyboardLayout::~X11KeyboardLayout() = default;

std::optional<std::string> X11KeyboardLayout::character(std::int64_t keyCode) const {
    if (!state_->keymap) {
        state_->read();
    }
    const auto key = x11KeyCode(keyCode);
    if (!state_->keymap || !key) {
        return std::nullopt;
    }
    return characterOf(*state_->keymap, state_->layout, *key);
}

std::optional<std::int64_t> X11KeyboardLayout::keyCode(std::uint32_t nativeKey) const {
    constexpr std::uint32_t lastKey = 255;
    return nativeKey <= lastKey ? virtualKeyCode(static_cast<X11KeyCode>(nativeKey)) : std::nullopt;
}

Subscription X11KeyboardLayout::onChanged(std::function<void()> handler) {
    return state_->changed.connect(std::move(handler));
}

} // namespace calmora
