// SPDX-License-Identifier: MIT
#include "platform/linux/keyboard/KeyCodes.h"

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

} // namespace
} // namespace calmora
