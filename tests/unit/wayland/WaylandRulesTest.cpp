// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/BarArea.h"
#include "platform/wayland/backend/QtPlatformChoice.h"

namespace calmora {
namespace {

TEST(QtPlatformChoice, TakesLayerSurfacesElseX11ElseWayland) {
    const auto inWords = [](const CompositorFacts& facts) {
        auto environment = qtEnvironmentFor(facts);
        std::string words = environment["QT_QPA_PLATFORM"];
        words += environment["QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT"] == "1" ? " roleless" : "";
        words += environment["QT_WAYLAND_DISABLE_WINDOWDECORATION"] == "1" ? " undecorated" : "";
        return words + environment["QT_SCALE_FACTOR"];
    };

    const std::pair<CompositorFacts, const char*> rows[] = {
        {{.hasXServer = true}, "xcb"},
        {{.hasXServer = true, .windowScale = 2}, "xcb2"},
        // sway, KWin, labwc
        {{.hasCompositor = true, .hasLayerShell = true, .drawsTitleBars = true, .hasXServer = true},
         "wayland;xcb roleless undecorated"},
        {{.hasCompositor = true, .hasLayerShell = true}, "wayland roleless"},
        // GNOME, weston with an X server and without
        {{.hasCompositor = true, .drawsTitleBars = true, .hasXServer = true, .windowScale = 2},
         "xcb"},
        {{.hasCompositor = true}, "wayland"},
        {{}, ""},
        // What the user wants counts.
        {{.wantedPlatform = "xcb", .hasCompositor = true, .hasLayerShell = true}, ""},
        {{.wantedPlatform = "wayland-egl", .hasCompositor = true, .hasLayerShell = true},
         " roleless"},
        {{.wantedPlatform = "wayland", .hasCompositor = true, .hasXServer = true}, ""}};
    for (const auto& [facts, expected] : rows) {
        EXPECT_EQ(inWords(facts), expected);
    }
}

TEST(BarArea, IsWhereThePointerIsInABar) {
    constexpr Size whole{1280, 800};

    const struct {
        std::string name;
        Size usable;
        std::optional<Point> pointer;
        Rect area;
        bool isInBar;
    } rows[] = {
        {"no bar", whole, Point{600, 0}, {0, 0, 1280, 800}, false},
        {"at the top", {1280, 770}, Point{600, 29}, {0, 30, 1280, 770}, true},
        {"above or below it", {1280, 770}, Point{600, 30}, {0, 30, 1280, 740}, false},
        {"at the bottom", {1280, 770}, Point{600, 770}, {0, 0, 1280, 770}, true},
        {"not told", {1280, 770}, {}, {0, 30, 1280, 740}, false},
        {"at the left", {1240, 800}, Point{39, 400}, {40, 0, 1240, 800}, true},
        {"at the right", {1240, 800}, Point{1240, 400}, {0, 0, 1240, 800}, true},
        {"bottom and right", {1240, 770}, Point{1270, 790}, {0, 0, 1240, 770}, true},
        {"more bar than room", {1280, 300}, Point{600, 350}, {0, 500, 1280, 300}, true},
    };

    for (const auto& row : rows) {
        const Rect area = areaBesideBars(whole, row.usable, row.pointer);
        EXPECT_EQ(area, row.area) << row.name;
        EXPECT_EQ(row.pointer && isInBar(*row.pointer, area), row.isInBar) << row.name;
    }
}

TEST(BarArea, CountsAPanelThatIsKnownOnlyByItsIcon) {
    constexpr Size whole{1280, 800};
    EXPECT_EQ(usableBesideIcon(whole, whole, {1262, 22}), (Size{1280, 756}));
    EXPECT_EQ(usableBesideIcon(whole, whole, {1262, 780}), (Size{1280, 760}));
    EXPECT_EQ(usableBesideIcon(whole, whole, {18, 400}), (Size{1244, 800}));
    EXPECT_EQ(usableBesideIcon(whole, whole, {300, 300}), whole);
    EXPECT_EQ(usableBesideIcon(whole, {1280, 770}, {1262, 22}), (Size{1280, 770}));
}

} // namespace
} // namespace calmora
