// SPDX-License-Identifier: MIT
#include "platform/linux/windows/CompositeWindowSystem.h"

#include "fakes/FakeWindowSystem.h"

namespace calmora {
namespace {

/// Added to the ids of a compositor's windows.
constexpr WindowId other = WindowId{1} << 56;

TEST(CompositeWindowSystem, ListsAnX11WindowOfACompositorOnce) {
    const struct {
        const char* what;
        std::vector<WindowId> x11;
        /// Windows of the compositor with the X ids of those that are X11's.
        std::vector<std::pair<WindowId, std::optional<std::uint32_t>>> compositor;
        std::optional<WindowId> x11Active;
        std::optional<WindowId> compositorActive;
        std::vector<WindowId> expected;
        std::optional<WindowId> active;
        bool coversAll;
        bool hasDisplay = true;
    } cases[] = {
        {"each is its own", {5}, {{7, {}}}, 5, 7, {5, other + 7}, other + 7, true},
        {"the same window", {5}, {{7, 5}}, {}, 7, {5}, 5, true},
        {"the same number, but no X11 window", {5}, {{5, {}}}, 5, {}, {5, other + 5}, {}, true},
        {"X lacks one yet", {5}, {{7, 5}, {8, 6}}, {}, 8, {5, other + 8}, other + 8, false},
        {"the other part is no X server", {5}, {{7, 5}}, {}, {}, {5, other + 7}, {}, false, false},
    };

    for (const auto& test : cases) {
        FakeWindowSystem x11;
        x11.display = test.hasDisplay ? ":0" : "";
        x11.covers = false;
        x11.active = test.x11Active;
        for (const WindowId id : test.x11) {
            x11.all.emplace_back().id = id;
        }
        FakeWindowSystem compositor;
        compositor.active = test.compositorActive;
        for (const auto& [id, x11Id] : test.compositor) {
            compositor.all.emplace_back().id = id;
            compositor.all.back().x11Id = x11Id;
            compositor.all.back().isFullScreen = true;
        }
        CompositeWindowSystem windows({&x11, &compositor});
        std::vector<WindowId> listed;
        for (const TopLevelWindow& window : windows.windows()) {
            listed.push_back(window.id);
        }
        const bool isListedTwice = listed.size() < test.x11.size() + test.compositor.size();
        EXPECT_EQ(windows.windows().front().isFullScreen, isListedTwice) << test.what;
        EXPECT_EQ(listed, test.expected) << test.what;
        EXPECT_EQ(windows.activeWindow(), test.active) << test.what;
        EXPECT_EQ(windows.coversAllWindows(), test.coversAll) << test.what;
    }
}

TEST(CompositeWindowSystem, NeverAsksAnX11WindowByWayOfACompositor) {
    const struct {
        const char* what;
        const char* applicationId;
        std::optional<ProcessId> process;
        std::vector<ProcessId> candidates;
        bool isListed;
        bool mayBeAsked;
        bool coversAll;
    } cases[] = {
        {"nobody's, of an X11 window's class", "XTerm", {}, {}, false, false, true},
        {"or of its instance", "xterm", {}, {}, false, false, true},
        {"a Wayland client's of that class", "XTerm", 10, {}, true, false, true},
        {"perhaps one's", "XTerm", {}, {10, 11}, true, false, true},
        {"of another class", "foot", 10, {}, true, true, true},
        {"nobody's, of another class", "foot", {}, {}, true, true, false},
    };

    for (const auto& test : cases) {
        FakeWindowSystem x11;
        x11.display = ":0";
        x11.covers = false;
        x11.active = 5;
        for (const WindowId id : {4, 5}) {
            TopLevelWindow& window = x11.all.emplace_back();
            window.id = id;
            window.instance = "xterm";
            window.className = "XTerm";
        }
        FakeWindowSystem compositor;
        compositor.active = 7;
        TopLevelWindow& window = compositor.all.emplace_back();
        window.id = 7;
        window.mayBeX11 = window.canBeAsked = true;
        window.applicationId = test.applicationId;
        window.process = test.process;
        window.candidates = test.candidates;

        CompositeWindowSystem windows({&x11, &compositor});
        const auto& all = windows.windows();
        ASSERT_EQ(all.size(), test.isListed ? 3U : 2U) << test.what;
        EXPECT_EQ(all.back().canBeAsked, test.mayBeAsked) << test.what;
        EXPECT_EQ(windows.activeWindow(), test.isListed ? other + 7 : 5) << test.what;
        EXPECT_EQ(windows.coversAllWindows(), test.coversAll) << test.what;
    }
}

} // namespace
} // namespace calmora
