#include "platform/x11/hotkeys/X11Modifiers.h"
#include "platform/linux/keyboard/KeyCodes.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace calmora {
namespace {

TEST(KeyCodes, GoBothWaysWithoutMeetingTwice) {
    std::set<int> keys;
    for (std::int64_t code = -1; code <= 300; ++code) {
        if (const auto key = x11KeyCode(code)) {
            keys.insert(*key);
            EXPECT_EQ(virtualKeyCode(*key), code);
        }
    }
    EXPECT_EQ(keys.size(), 119U);
    EXPECT_EQ(x11KeyCode(40), 45) << "K";
    EXPECT_EQ(x11KeyCode(114), 118) << "Help is Insert";
    EXPECT_EQ(x11KeyCode(63), std::nullopt) << "Fn";
    EXPECT_EQ(x11KeyCode(40 + (1LL << 32)), std::nullopt);
    EXPECT_EQ(virtualKeyCode(107), std::nullopt) << "Print";
}

TEST(X11Modifiers, AreWhereTheirKeysAre) {
    const std::map<X11KeyCode, std::vector<std::uint32_t>> keysyms{
        {50, {XKB_KEY_Shift_L}},           {64, {XKB_KEY_Alt_L, XKB_KEY_Meta_L}},
        {77, {XKB_KEY_Num_Lock}},          {78, {XKB_KEY_Scroll_Lock}},
        {108, {XKB_KEY_ISO_Level3_Shift}}, {133, {0, XKB_KEY_Super_L}},
    };
    const auto look = [&](X11KeyCode key) { return keysyms.at(key); };
    const X11Modifiers usual = x11Modifiers({{{50}, {}, {}, {64}, {77}, {}, {133}, {108}}}, look);
    EXPECT_EQ(usual, (X11Modifiers{8, 64, 16, 0}));
    const X11Modifiers moved = x11Modifiers({{{50}, {}, {}, {}, {133}, {77, 78}, {64}, {}}}, look);
    EXPECT_EQ(moved, (X11Modifiers{64, 16, 32, 32}));
    EXPECT_EQ(x11Modifiers({{{64}, {133}, {77}}}, look), X11Modifiers{})
        << "Shift, Lock and Control stay what they are";
    EXPECT_EQ(usual.lockVariants(), (std::vector<X11ModifierMask>{0, 2, 16, 18}));
    EXPECT_EQ(moved.lockVariants(), (std::vector<X11ModifierMask>{0, 2, 32, 34}));
    EXPECT_EQ((X11Modifiers{8, 64, 16, 32}.lockVariants().size()), 8U);
    EXPECT_EQ(usual.fromCarbon(0x1B00), 77);
    EXPECT_EQ(usual.toCarbon(77 | 2 | 16 | 0x2100), 0x1B00U)
        << "locks, the other layout and a held button change nothing";
    EXPECT_EQ((X11Modifiers{8, 0, 16, 0}.fromCarbon(0x100)), std::nullopt) << "no Super";
}

} // namespace
} // namespace calmora
