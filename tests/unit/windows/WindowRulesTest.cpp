// SPDX-License-Identifier: MIT
#include "fakes/LookUp.h"
#include "platform/linux/windows/WindowOwner.h"
#include "platform/linux/windows/WindowRoles.h"
#include "platform/x11/X11Icon.h"

namespace calmora {
namespace {

TEST(WindowOwner, BelievesTheServerFirst) {
    // 30 is 2 in its sandbox, 40 another user's, 50 younger than every window.
    const std::map<ProcessId, OwnerProcess> live{
        {2, {{2}, 1, true, {"kthreadd"}}},           {10, {{10}, 70, true, {"editor"}}},
        {20, {{20}, 70, true, {"player"}}},          {30, {{30, 2}, 70, true, {"editor"}}},
        {40, {{40}, 70, false, {"editor"}}},         {50, {{50}, 71, true, {"editor"}}},
        {60, {{60}, 70, true, {"a-very-long-nam"}}},
    };
    const OwnerLookup lookup{[&](ProcessId process) {
                                 const auto found = lookUp(live, process);
                                 return found ? std::optional(found->startTime) : std::nullopt;
                             },
                             [&](ProcessId process) { return lookUp(live, process); }};
    const auto certain = [](ProcessId id) { return WindowOwner{id, ProcessCertainty::certain}; };
    const auto claimed = [](ProcessId id) { return WindowOwner{id, ProcessCertainty::claimed}; };
    const WindowOwner nobody{};
    const WindowOwner remote{{}, ProcessCertainty::unknown, true};
    constexpr bool silent = false;

    const struct {
        const char* what;
        OwnerClaims claims;
        WindowOwner expected;
        bool systemTells = true;
    } cases[] = {
        {"both agree", {10, 10, "here"}, certain(10)},
        {"nothing in the window", {10, {}, ""}, certain(10)},
        {"a sandbox lies", {30, 2, "here"}, certain(30)},
        {"a sandbox with a host name of its own", {30, 2, "container"}, certain(30)},
        {"the claimed process is none", {10, 99, "here"}, certain(10)},
        {"forwarded from another machine", {10, 20, "there"}, remote},
        {"forwarded from this machine", {10, 20, "here"}, remote},
        {"forwarded, and the id passed to a later process", {10, 50, "here"}, certain(10)},
        {"the connecting process has ended", {99, 10, "here", "Editor"}, claimed(10)},
        {"and neither says anything", {99, {}, "here", "Editor"}, nobody},
        {"and the window says its id", {99, 99, "here", "Editor"}, nobody},
        {"and it runs elsewhere", {99, 10, "there", "Editor"}, remote},
        {"and a later process has its id", {50, {}, "here", "Editor"}, nobody},
        {"and the window's own word was for it as well", {50, 50, "here", "Editor"}, nobody},
        {"and the window names its child all the same", {50, 10, "here", "Editor"}, claimed(10)},
        {"and the window names a stranger", {99, 20, "here", "Editor"}, nobody},
        {"and the window names another user's process", {99, 40, "here", "Editor"}, nobody},
        {"and the window names a later process", {99, 50, "here", "Editor"}, nobody},
        {"and the window names an id of some sandbox", {99, 30, "here", "Editor"}, nobody},
        {"the class agrees alone, cut short", {99, 60, "", "x", "A-Very-Long-Name"}, claimed(60)},
        {"a short name is not cut", {99, 10, "", "editor-of-icons", ""}, nobody},
        {"over the network from here", {{}, 10, "here", "editor"}, claimed(10)},
        {"over the network, with a false id", {{}, 20, "here", "editor"}, nobody},
        {"over the network, from where is unsaid", {{}, 10, "", "editor"}, nobody},
        {"over the network from elsewhere", {{}, 10, "there", "editor"}, remote},
        {"the server never tells", {{}, 10, "here"}, claimed(10), silent},
        {"nor does the window say where", {{}, 10, ""}, nobody, silent},
        {"nor is it ours", {{}, 40, "here"}, nobody, silent},
        {"nobody knows", {}, nobody},
    };

    for (auto test : cases) {
        test.claims.firstSeen = 70;
        test.claims.systemTells = test.systemTells;
        EXPECT_EQ(windowOwner(test.claims, "here", lookup), test.expected) << test.what;
    }
}

TopLevelWindow window(WindowId id, ProcessId process, WindowType type = WindowType::normal) {
    return {.id = id, .process = process, .type = type, .canBeAsked = true};
}

TEST(WindowOwner, AClaimGivesWayToTheProcessesOwnWindows) {
    std::vector<TopLevelWindow> windows{window(1, 10), window(2, 10), window(3, 20)};
    windows[0].certainty = windows[2].certainty = ProcessCertainty::claimed;
    windows[1].certainty = ProcessCertainty::certain;
    dropContestedClaims(windows);
    EXPECT_FALSE(windows[0].process);
    EXPECT_EQ(windows[1].process, 10);
    EXPECT_EQ(windows[2].process, 20) << "nothing speaks against it";
}

std::string rolesOf(const std::vector<TopLevelWindow>& windows) {
    std::string text;
    for (const WindowRole& role : windowRoles(windows)) {
        text += role.isTransient ? "t" : "";
        text += role.isRegular ? "r" : "";
        text += role.mayBeAsked ? "a" : "";
        text += role.isShell ? "s " : " ";
    }
    return text;
}

TEST(WindowRoles, FollowTypeStateAndParents) {
    using enum WindowType;
    std::vector<TopLevelWindow> types;
    for (const WindowType type : {none, normal, dialog, utility, dock, desktop, other}) {
        types.push_back(window(types.size() + 1, 10, type));
    }
    EXPECT_EQ(rolesOf(types), "ra ra ra ra s s  ");

    TopLevelWindow hidden = window(1, 10);
    hidden.skipsTaskbar = true;
    TopLevelWindow deaf = window(2, 10);
    deaf.canBeAsked = false;
    EXPECT_EQ(rolesOf({hidden, deaf}), "a r ");

    const TopLevelWindow plain = window(1, 10);
    const auto changed = [](auto change) {
        TopLevelWindow question = window(2, 10, dialog);
        change(question);
        return question;
    };
    const auto ofListed = changed([](auto& w) { w.transientFor = 1; });
    const auto ofHidden = changed([](auto& w) { w.transientFor = 99; });
    const auto modal = changed([](auto& w) { w.isModal = true; });
    const auto skipped = changed([](auto& w) { w.isModal = w.skipsTaskbar = true; });
    EXPECT_EQ(rolesOf({plain, ofListed}), "ra t ") << "a dialog of a listed window";
    EXPECT_EQ(rolesOf({plain, ofHidden}), "ra t ") << "a dialog of a hidden leader";
    EXPECT_EQ(rolesOf({ofHidden}), "ra ") << "nothing but a dialog of a hidden leader";
    EXPECT_EQ(rolesOf({plain, modal}), "ra t ") << "a modal dialog without a parent";
    EXPECT_EQ(rolesOf({skipped}), "ra ") << "a program that starts with a question";
    EXPECT_EQ(rolesOf({window(1, 20), modal}), "ra ra ") << "the plain window is another's";
}

TEST(WindowRoles, ParentsAreFollowedToTheTop) {
    std::vector<TopLevelWindow> windows{window(1, 10), window(2, 10), window(3, 10)};
    windows[2].transientFor = 2;
    windows[1].transientFor = 1;
    EXPECT_EQ(topmostParent(windows, 3), 1U);
    windows[0].transientFor = 77;
    EXPECT_EQ(topmostParent(windows, 3), 1U) << "a parent that is no window of the list";
    windows[0].transientFor = 3;
    EXPECT_NE(topmostParent(windows, 3), 0U) << "a circle comes to an end";
}

std::vector<std::uint32_t> picture(std::uint32_t size, std::uint32_t pixel) {
    std::vector<std::uint32_t> property(2 + std::size_t{size} * size, pixel);
    property[0] = size;
    property[1] = size;
    return property;
}

TEST(X11Icon, ChoosesTheSmallestWholePictureThatFillsTheSpace) {
    std::vector<std::uint32_t> property;
    for (const std::uint32_t size : {16U, 128U, 64U, 32U}) {
        const auto one = picture(size, 0xff000000U | size);
        property.insert(property.end(), one.begin(), one.end());
    }
    EXPECT_EQ(chooseIcon(property, 60)->argb, std::vector<std::uint32_t>(64 * 64, 0xff000040U));
    EXPECT_EQ(chooseIcon(property, 500)->width, 128) << "the largest there is";
    property.resize(1000);
    EXPECT_EQ(chooseIcon(property, 60)->width, 16) << "the larger picture is incomplete";
    auto clear = picture(4, 0xffff0000U);
    clear[2] = 0x0000ff00U; // A clear pixel's colour must not shine through.
    EXPECT_EQ(*chooseIcon(clear, 2),
              (ImagePixels{2, 2, {0xbfff0000U, 0xffff0000U, 0xffff0000U, 0xffff0000U}}));
    using Property = std::vector<std::uint32_t>;
    for (const Property& broken : {Property{},
                                   {1},
                                   {1, 1},
                                   {0, 5, 1, 1},
                                   {0x10000U, 0x10000U, 1},
                                   {0xffffffffU, 0xffffffffU, 7}}) {
        EXPECT_FALSE(chooseIcon(broken, 48));
    }
}

} // namespace
} // namespace calmora
