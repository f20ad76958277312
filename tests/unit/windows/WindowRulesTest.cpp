#include "platform/linux/windows/WindowOwner.h"
#include "platform/linux/windows/WindowRoles.h"
#include "platform/linux/x11/X11Icon.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <unistd.h>
#include <vector>

namespace calmora {
namespace {

TEST(WindowOwner, BelievesTheServerFirst) {
    // Live processes: 10 and 20 in our namespace, 30 in a sandbox where it is 2.
    const std::map<ProcessId, std::vector<ProcessId>> live{
        {2, {2}}, {10, {10}}, {20, {20}}, {30, {30, 2}}};
    const auto idsOf = [&](ProcessId process) {
        const auto found = live.find(process);
        return found == live.end() ? std::vector<ProcessId>() : found->second;
    };
    const WindowOwner certain{10, ProcessCertainty::certain, false};
    const WindowOwner sandboxed{30, ProcessCertainty::certain, false};
    const WindowOwner claimed{10, ProcessCertainty::claimed, false};
    const WindowOwner remote{{}, ProcessCertainty::unknown, true};

    const struct {
        const char* what;
        OwnerClaims claims;
        WindowOwner expected;
    } cases[] = {
        {"both agree", {10, 10, "here"}, certain},
        {"nothing in the window", {10, {}, ""}, certain},
        {"a sandbox lies", {30, 2, "here"}, sandboxed},
        {"a sandbox with a host name of its own", {30, 2, "container"}, sandboxed},
        {"the claimed process is none", {10, 99, "here"}, certain},
        {"the connecting process has ended", {99, 10, "here"}, claimed},
        {"forwarded from another machine", {10, 20, "there"}, remote},
        {"forwarded from this machine", {10, 20, "here"}, remote},
        {"the server knows nothing", {{}, 10, "here"}, claimed},
        {"the server knows nothing, nor does the window say where", {{}, 10, ""}, {}},
        {"the server knows nothing of another machine", {{}, 10, "there"}, remote},
        {"nobody knows", {}, {}},
    };

    for (const auto& test : cases) {
        EXPECT_EQ(windowOwner(test.claims, "here", idsOf), test.expected) << test.what;
    }
    EXPECT_EQ(namespaceIds(::getpid()).front(), ::getpid());
    EXPECT_TRUE(namespaceIds(0).empty());
}

TopLevelWindow window(WindowId id, ProcessId process, WindowType type = WindowType::normal) {
    return {.id = id, .process = process, .type = type, .canBeAsked = true};
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
    std::vector<TopLevelWindow> types;
    for (const WindowType type :
         {WindowType::none, WindowType::normal, WindowType::dialog, WindowType::utility,
          WindowType::dock, WindowType::desktop, WindowType::other}) {
        types.push_back(window(types.size() + 1, 10, type));
    }
    EXPECT_EQ(rolesOf(types), "ra ra ra ra s s  ");

    TopLevelWindow hidden = window(1, 10);
    hidden.skipsTaskbar = true;
    TopLevelWindow deaf = window(2, 10);
    deaf.canBeAsked = false;
    EXPECT_EQ(rolesOf({hidden, deaf}), "a r ");

    TopLevelWindow dialog = window(2, 10, WindowType::dialog);
    dialog.transientFor = 1;
    EXPECT_EQ(rolesOf({window(1, 10), dialog}), "ra t ") << "a dialog of a listed window";
    dialog.transientFor = 99;
    EXPECT_EQ(rolesOf({window(1, 10), dialog}), "ra t ") << "a dialog of a hidden leader";
    EXPECT_EQ(rolesOf({dialog}), "ra ") << "nothing but a dialog of a hidden leader";
    TopLevelWindow modal = window(2, 10, WindowType::dialog);
    modal.isModal = true;
    EXPECT_EQ(rolesOf({window(1, 10), modal}), "ra t ") << "a modal dialog without a parent";
    modal.skipsTaskbar = true;
    EXPECT_EQ(rolesOf({modal}), "ra ") << "a program that starts with a question";
    modal.skipsTaskbar = false;
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

TEST(X11Icon, ChoosesTheSmallestThatFillsTheSpace) {
    std::vector<std::uint32_t> property;
    for (const std::uint32_t size : {16U, 128U, 64U, 32U}) {
        const auto one = picture(size, 0xff000000U | size);
        property.insert(property.end(), one.begin(), one.end());
    }
    EXPECT_EQ(chooseIcon(property, 60)->argb, std::vector<std::uint32_t>(64 * 64, 0xff000040U));
    EXPECT_EQ(chooseIcon(property, 500)->width, 128) << "the largest there is";

    auto clear = picture(4, 0xffff0000U);
    clear[2] = 0x0000ff00U; // A clear pixel's colour must not shine through.
    EXPECT_EQ(*chooseIcon(clear, 2),
              (ImagePixels{2, 2, {0xbfff0000U, 0xffff0000U, 0xffff0000U, 0xffff0000U}}));
}

TEST(X11Icon, StopsAtWhatIsBroken) {
    auto property = picture(2, 0xff0000ffU);
    const auto cut = picture(40, 1);
    property.insert(property.end(), cut.begin(), cut.begin() + 20);
    EXPECT_EQ(chooseIcon(property, 40)->width, 2) << "the larger picture is incomplete";
    const std::vector<std::vector<std::uint32_t>> broken{
        {}, {1}, {1, 1}, {0, 5, 1, 1}, {0x10000U, 0x10000U, 1}, {0xffffffffU, 0xffffffffU, 7}};
    for (const auto& data : broken) {
        EXPECT_FALSE(chooseIcon(data, 48));
    }
}

} // namespace
} // namespace calmora
