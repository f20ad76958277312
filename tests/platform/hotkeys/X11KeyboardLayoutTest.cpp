#include "platform/x11/hotkeys/X11KeyboardLayout.h"
#include "platform/linux/EventPoll.h"

#include "platform/x11/hotkeys/X11Keyboard.h"
#include "platform/x11/hotkeys/XcbXkb.h"
#include "support/KeyPresser.h"
#include "support/VirtualDesktop.h"
#include "support/Waiting.h"

namespace calmora {
namespace {

TEST(X11KeyboardLayout, FollowsTheUsersLayouts) {
    VirtualDesktop desktop;
    EventPoll events;
    KeyPresser other(desktop.display());
    xcb_xkb_use_extension(other.connection(), 1, 0);
    X11Keyboard keyboard(events, desktop.display());
    X11KeyboardLayout layout(keyboard);
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
        ASSERT_EQ(desktop.run({"setxkbmap", "-layout", row.layouts}), 0) << desktop.log();
        xcb_xkb_latch_lock_state(other.connection(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, row.active,
                                 0, 0, 0);
        other.sync();
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

} // namespace
} // namespace calmora
