// SPDX-License-Identifier: MIT
#include "platform/qt/window/FocusMove.h"
#include "platform/qt/window/PopoverPlacement.h"

namespace calmora {
namespace {

TEST(PopoverPlacement, IsBesideTheIconAndInsideItsScreen) {
    constexpr Size size{360, 500};
    const ScreenArea free{{0, 0, 1280, 800}, {0, 0, 1280, 800}};
    const ScreenArea topPanel{{0, 0, 1280, 800}, {0, 24, 1280, 776}};
    const ScreenArea bottomPanel{{0, 0, 1280, 800}, {0, 0, 1280, 760}};
    const ScreenArea leftPanel{{0, 0, 1280, 800}, {48, 0, 1232, 800}};
    const ScreenArea rightPanel{{0, 0, 1280, 800}, {0, 0, 1232, 800}};
    const ScreenArea tiny{{0, 0, 320, 240}, {0, 20, 320, 220}};
    const ScreenArea low{{0, 0, 1280, 400}, {0, 0, 1280, 400}};
    const ScreenArea second{{1280, 200, 1024, 768}, {1280, 200, 1024, 728}};

    const struct {
        std::string name;
        std::optional<Rect> icon;
        std::vector<ScreenArea> screens;
        Rect expected;
    } rows[] = {
        {"centred below", Rect{600, 0, 24, 24}, {topPanel}, {432, 32, 360, 500}},
        {"clamped at the right", Rect{1250, 0, 24, 24}, {topPanel}, {912, 32, 360, 500}},
        {"above a bottom panel", Rect{600, 768, 24, 24}, {bottomPanel}, {432, 252, 360, 500}},
        {"right of a left panel", Rect{12, 20, 24, 24}, {leftPanel}, {56, 8, 360, 500}},
        {"left of a right panel", Rect{1244, 780, 24, 24}, {rightPanel}, {864, 292, 360, 500}},
        {"above, nothing reserved", Rect{600, 776, 24, 24}, {free}, {432, 268, 360, 500}},
        {"low, nothing reserved", Rect{600, 0, 24, 24}, {low}, {432, 32, 360, 360}},
        {"the icon's screen", Rect{1400, 936, 24, 24}, {topPanel, second}, {1288, 420, 360, 500}},
        {"a screen too small", Rect{290, 0, 20, 20}, {tiny}, {8, 28, 304, 204}},
        {"unknown, top panel", {}, {topPanel, second}, {912, 32, 360, 500}},
        {"unknown, bottom panel", {}, {bottomPanel}, {912, 252, 360, 500}},
        {"unknown, no panel", {}, {free}, {912, 8, 360, 500}},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(placePopover(size, row.icon, row.screens), row.expected) << row.name;
    }
}

TEST(FocusMove, ClosesOnlyWhenTheUserLeft) {
    using enum FocusVerdict;

    const struct {
        std::string name;
        FocusMove move;
        FocusVerdict verdict;
    } rows[] = {
        {"a grab of the keyboard alone",
         {.isStillHere = true, .formerOwnerExists = true, .userActed = true},
         stay},
        {"an alert of ours",
         {.isAlertOpen = true, .isOwnerOurs = true, .isOwnerNew = true, .formerOwnerExists = true},
         stay},
        {"the active window was quit", {}, takeBack},
        {"another window got it, why is not known yet", {.formerOwnerExists = true}, waitAndSee},
        {"another was chosen", {.formerOwnerExists = true, .isSettled = true}, close},
        {"it asks to save", {.isOwnerNew = true}, close},
        {"the settings window", {.isOwnerOurs = true}, close},
        {"the user switched windows after a quit", {.userActed = true}, close},
        {"another was quit", {.formerOwnerExists = true, .windowVanished = true}, takeBack},
        {"a quit made another one ask",
         {.isOwnerNew = true, .formerOwnerExists = true, .windowVanished = true},
         close},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(judge(row.move), row.verdict) << row.name;
    }
}

} // namespace
} // namespace calmora
