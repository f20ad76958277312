// SPDX-License-Identifier: MIT
#include "platform/x11/hotkeys/X11HotKeys.h"
#include "platform/linux/EventPoll.h"

#include "platform/x11/hotkeys/X11Keyboard.h"
#include "platform/x11/hotkeys/X11KeyboardLayout.h"
#include "platform/x11/hotkeys/XcbXkb.h"
#include "support/KeyPresser.h"
#include "support/VirtualDesktop.h"
#include "support/Waiting.h"

#include <xcb/xinput.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// X keycodes, and the virtual key codes and Carbon masks that mean them.
constexpr std::uint8_t controlKey = 37;
constexpr std::uint8_t altKey = 64;
constexpr std::uint8_t superKey = 133;
constexpr std::uint8_t shiftKey = 50;
constexpr std::uint8_t numLockKey = 77;
constexpr std::uint8_t capsLockKey = 66;
constexpr std::uint8_t kKey = 45;
constexpr std::uint8_t jKey = 44;
constexpr std::uint8_t f5Key = 71;
constexpr std::uint32_t k = 40;
constexpr std::uint32_t j = 38;
constexpr std::uint32_t f5 = 96;
constexpr std::uint32_t control = 0x1000;
constexpr std::uint32_t option = 0x800;
constexpr std::uint32_t shift = 0x200;
constexpr std::uint32_t command = 0x100;

class X11HotKeysTest : public testing::Test {
  protected:
    void open(const std::string& windowManager = {}) {
        desktop.emplace(VirtualDesktopOptions{.windowManager = windowManager});
        keys.emplace(desktop->display());
        keyboard.emplace(events, desktop->display());
        hotKeys.emplace(*keyboard);
        ASSERT_EQ(hotKeys->unavailableReason(), std::nullopt);
        handler = hotKeys->installEventHandler([this](const HotKeyEvent& event) {
            heard.push_back((event.kind == HotKeyEventKind::hotKeyPressed ? "+" : "-") +
                            std::to_string(std::get<HotKeyIdentifier>(event.identifier).id));
            return HotKeyStatus::success;
        });
        hotKeys->addEventTypes(HotKeyEventTypes::hotKeys);
    }

    /// Registers under the next number and keeps the token; gives the status.
    std::int32_t take(std::uint32_t keyCode, std::uint32_t modifiers) {
        auto answer = hotKeys->registerHotKey(keyCode, modifiers, {7, ++lastId});
        EXPECT_EQ(answer.status == 0, static_cast<bool>(answer.hotKey));
        tokens.push_back(std::move(answer.hotKey));
        return answer.status;
    }

    /// What was heard up to a press of Control, Shift and F5, which is registered for that.
    std::vector<std::string> takeHeard() {
        Subscription marker = hotKeys->registerHotKey(f5, control | shift, {7, 999}).hotKey;
        keys->tap({controlKey, shiftKey, f5Key});
        EXPECT_TRUE(pumpUntil(events, [&] { return !heard.empty() && heard.back() == "-999"; }));
        auto result = std::exchange(heard, {});
        std::erase(result, "+999");
        std::erase(result, "-999");
        return result;
    }

    /// Whether another client may grab the key with this X modifier mask; lets go of it again.
    bool isFree(std::uint8_t key, std::uint16_t mask) {
        xcb_connection_t* other = keys->connection();
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(other, grabByOther(key, mask)));
        xcb_ungrab_key(other, key, keys->root(), mask);
        keys->sync();
        return !error;
    }

    /// Makes one of the layouts the active one.
    void lockLayout(std::uint8_t number) {
        xcb_xkb_use_extension(keys->connection(), 1, 0);
        xcb_xkb_latch_lock_state(keys->connection(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, number, 0, 0,
                                 0);
        keys->sync();
    }

    xcb_void_cookie_t grabByOther(std::uint8_t key, std::uint16_t mask) {
        return xcb_grab_key_checked(keys->connection(), 0, keys->root(), mask, key,
                                    XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    }

    EventPoll events;
    std::optional<VirtualDesktop> desktop;
    std::optional<KeyPresser> keys;
    std::optional<X11Keyboard> keyboard;
    std::optional<X11HotKeys> hotKeys;
    std::vector<Subscription> tokens;
    Subscription handler;
    std::uint32_t lastId = 0;
    std::vector<std::string> heard;
};

TEST_F(X11HotKeysTest, FireOnceHoweverLongTheyAreHeldInAnotherWindow) {
    open("openbox");
    ASSERT_EQ(take(k, control | option), 0);
    const pid_t editor = desktop->start({"xterm"});
    ASSERT_TRUE(waitFor([&] { return keys->keyboardOwner() > keys->root(); }));
    keys->press({controlKey, altKey, kKey});
    pumpFor(events, 1500ms);
    EXPECT_THAT(heard, ElementsAre("+1"));
    // The keyboard is free meanwhile, also for other hot keys.
    ASSERT_EQ(take(j, control | option), 0);
    keys->tap({jKey});
    EXPECT_TRUE(pumpUntil(events, [&] { return heard.size() == 3; }));
    // Modifiers may go first.
    keys->release({controlKey, altKey});
    keys->release({kKey});
    EXPECT_THAT(takeHeard(), ElementsAre("+1", "+2", "-2", "-1"));
    keys->tap({controlKey, altKey, kKey});
    keys->tap({controlKey, altKey, kKey});
    keys->tap({controlKey, kKey});
    keys->tap({controlKey, altKey, shiftKey, kKey});
    EXPECT_THAT(takeHeard(), ElementsAre("+1", "-1", "+1", "-1")) << "all up when it is read";
    desktop->end(editor);
}

TEST_F(X11HotKeysTest, FireWithLocksAndOtherLayouts) {
    open("xfwm4");
    ASSERT_EQ(take(k, command), 0);
    for (const std::uint8_t lock : {numLockKey, capsLockKey, numLockKey}) {
        keys->tap({lock});
        keys->tap({superKey, kKey});
        EXPECT_THAT(takeHeard(), ElementsAre("+1", "-1")) << int{lock};
    }
    keys->tap({capsLockKey});
    ASSERT_EQ(desktop->run({"setxkbmap", "us,ru"}), 0);
    lockLayout(1);
    keys->tap({superKey, kKey});
    EXPECT_THAT(takeHeard(), ElementsAre("+1", "-1")) << "Cyrillic letters";
    ASSERT_EQ(desktop->run({"setxkbmap", "de"}), 0);
    keys->tap({superKey, kKey});
    EXPECT_THAT(takeHeard(), ElementsAre("+1", "-1"));
}

TEST_F(X11HotKeysTest, FollowModifiersThatMove) {
    open("xfwm4");
    ASSERT_EQ(take(k, command), 0);
    ASSERT_EQ(take(k, option), 0);
    ASSERT_EQ(desktop->run(
                  {"xmodmap", "-e", "clear mod2", "-e", "clear mod3", "-e", "add mod3 = Num_Lock"}),
              0);
    ASSERT_TRUE(pumpUntil(events, [&] { return keyboard->modifiers().numLock == 32; }));
    keys->tap({numLockKey});
    keys->tap({superKey, kKey});
    EXPECT_THAT(takeHeard(), ElementsAre("+1", "-1")) << "Num Lock is another modifier now";
    keys->tap({numLockKey});
    ASSERT_EQ(desktop->run({"setxkbmap", "-option", "altwin:swap_alt_win"}), 0);
    // The keys have changed places, the modifiers are carried by the same bits or others.
    keys->tap({altKey, kKey});
    EXPECT_THAT(takeHeard(), ElementsAre("+1", "-1"));
    keys->tap({superKey, kKey});
    EXPECT_THAT(takeHeard(), ElementsAre("+2", "-2"));
}

TEST_F(X11HotKeysTest, RefusalsLeaveNothingBehind) {
    open();
    constexpr std::uint16_t superMask = 64;
    constexpr std::uint16_t capsLock = 2;
    grabByOther(kKey, superMask | capsLock);
    keys->sync();
    EXPECT_EQ(take(k, command), HotKeyStatus::taken) << "with Caps Lock on it is another's";
    EXPECT_TRUE(waitFor([&] { return isFree(kKey, superMask) && isFree(kKey, superMask | 16); }));

    const std::uint32_t modifiers[] = {8};
    const std::uint32_t eventMask = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
    xcb_connection_t* other = keys->connection();
    xcb_discard_reply(other, xcb_input_xi_query_version(other, 2, 2).sequence);
    const X11Reply<xcb_input_xi_passive_grab_device_reply_t> reply(
        xcb_input_xi_passive_grab_device_reply(
            other,
            xcb_input_xi_passive_grab_device(
                other, XCB_CURRENT_TIME, keys->root(), XCB_NONE, kKey, XCB_INPUT_DEVICE_ALL_MASTER,
                1, 1, XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC,
                XCB_GRAB_MODE_ASYNC, XCB_INPUT_GRAB_OWNER_NO_OWNER, &eventMask, modifiers),
            nullptr));
    ASSERT_TRUE(reply && reply->num_modifiers == 0);
    EXPECT_EQ(take(k, option), HotKeyStatus::taken) << "XInput 2";
    for (const auto& [keyCode, mask] :
         {std::pair{57U, command}, {k, command | 0x20000U}, {999U, command}}) {
        EXPECT_EQ(take(keyCode, mask), HotKeyStatus::badValue) << keyCode;
    }
    ASSERT_EQ(take(k, control), 0);
    EXPECT_FALSE(isFree(kKey, 4));
    tokens.clear();
    EXPECT_TRUE(waitFor([&] { return isFree(kKey, 4) && isFree(kKey, 4 | capsLock | 16); }));
}

TEST_F(X11HotKeysTest, PressesThatMustNotActAreThrownAway) {
    open();
    ASSERT_EQ(take(k, control), 0);
    keys->tap({controlKey, kKey});
    keyboard->discardKeyPresses();
    EXPECT_THAT(takeHeard(), IsEmpty());
    keys->press({controlKey, kKey});
    keyboard->discardKeyPresses();
    pumpFor(events, 1000ms);
    EXPECT_THAT(heard, IsEmpty()) << "not even while it is held on";
    keys->release({kKey, controlKey});
    keys->tap({controlKey, kKey});
    EXPECT_THAT(takeHeard(), ElementsAre("+1", "-1"));
}

TEST_F(X11HotKeysTest, TheLayoutIsTheUsersActiveOne) {
    open();
    X11KeyboardLayout layout(*keyboard);
    int changes = 0;
    const auto watching = layout.onChanged([&] { ++changes; });
    const auto text = [&](std::int64_t keyCode) { return layout.character(keyCode).value_or("-"); };

    const struct {
        std::string layouts;
        std::uint8_t active;
        /// The keys where a US keyboard has q, z, ;, -, `, =, /, and the one left of z.
        const char* texts;
    } rows[] = {
        {"us,ru", 1, "qz;-`=/<"},
        {"fr", 0, "awm)²=!<"},
        {"us,de", 1, "qyöß^´-<"},
    };

    for (const auto& row : rows) {
        ASSERT_EQ(desktop->run({"setxkbmap", "-layout", row.layouts}), 0) << desktop->log();
        lockLayout(row.active);
        std::string found;
        const bool isRight = pumpUntil(events, [&] {
            found.clear();
            for (const std::int64_t code : {12, 6, 41, 27, 50, 24, 44, 10}) {
                found += text(code);
            }
            return found == row.texts;
        });
        EXPECT_TRUE(isRight) << row.layouts << ": " << found;
    }
    EXPECT_GE(changes, 3);
    EXPECT_EQ(text(36), "-") << "Return writes nothing to see";
    EXPECT_EQ(text(-1), "-");
    X11Keyboard nowhere(events, ":4242");
    EXPECT_FALSE(nowhere.isAlive());
    EXPECT_EQ(X11KeyboardLayout(nowhere).character(40), "k") << "American without a server";
    const auto reading = [&](const char* layouts) {
        return X11KeyboardLayout(nowhere, [layouts](xkb_context* context) {
            const xkb_rule_names names{"evdev", "pc105", layouts, "", ""};
            return XkbKeymap(xkb_keymap_new_from_names(context, &names, {}));
        });
    };
    const auto german = reading("ru,de");
    EXPECT_EQ(german.character(6), "y") << "the keymap of another window system";
    EXPECT_EQ(german.shiftedCharacter(20), "§");
    EXPECT_EQ(reading("ru").character(6), "z");
}

TEST_F(X11HotKeysTest, EndQuietlyWithTheServer) {
    open();
    ASSERT_EQ(take(k, control), 0);
    keys->press({controlKey, kKey});
    ASSERT_TRUE(pumpUntil(events, [&] { return heard.size() == 1; }));
    bool isClosed = false;
    const auto watching = keyboard->onClosed([&] { isClosed = true; });
    desktop->end(desktop->server());
    ASSERT_TRUE(pumpUntil(events, [&] { return isClosed; }));
    EXPECT_THAT(heard, ElementsAre("+1", "-1")) << "no key stays down for ever";
    EXPECT_EQ(take(k, command), HotKeyStatus::unavailable);
    EXPECT_NE(hotKeys->unavailableReason(), std::nullopt);
    hotKeys->removeEventTypes(HotKeyEventTypes::hotKeys);
    hotKeys->addEventTypes(HotKeyEventTypes::rawKeys);
    keyboard->discardKeyPresses();
    tokens.clear();
    EXPECT_LT(pumpFor(events, 50ms), 3) << "a dead connection does not spin";
}

} // namespace
} // namespace calmora
