// SPDX-License-Identifier: MIT
// The workspace over an X server and a second window system, which names applications only.
#include "WorkspaceTest.h"

#include "fakes/FakeWindowSystem.h"

#include <csignal>

namespace calmora {
namespace {

using testing::ElementsAre;

struct JoinedWindowSystems : testing::Test {
    JoinedWindowSystems() {
        for (const WindowId id : {WindowId{1}, WindowId{2}}) {
            second.all.push_back(window(id));
        }
    }

    /// A window that may be either twin's.
    [[nodiscard]] TopLevelWindow window(WindowId id) const {
        TopLevelWindow result;
        result.id = id;
        result.candidates = {lower, higher};
        result.applicationId = "org.example.Twin";
        result.canBeAsked = true;
        return result;
    }

    using Listed = std::map<ProcessId, std::vector<ProcessId>>;

    LinuxDesktop machine;
    const RealProcess one;
    const RealProcess other;
    const ProcessId lower = std::min(one.id(), other.id());
    const ProcessId higher = std::max(one.id(), other.id());
    FakeWindowSystem second;
    JoinedDesktop joined{machine, second};
};

TEST_F(JoinedWindowSystems, MakeOneListInWhichUntoldOwnersAreOnlyAsked) {
    int activations = 0;
    const auto activated = joined.workspace.onActivated([&](const auto&) { ++activations; });
    machine.bus.items = {higher}; // It has its row already.
    const pid_t client = machine.client();
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return activations > 0; }));
    EXPECT_EQ(second.iconsRead, 0) << "only the application in front is worked out";
    const Listed expected{{lower, {lower, higher}}, {client, {}}};
    EXPECT_TRUE(waitFor([&] { return joined.listed() == expected; }))
        << testing::PrintToString(joined.listed());

    const auto twin = joined.workspace.runningApplication(lower);
    EXPECT_TRUE(twin->hasSeveralCandidates());
    EXPECT_FALSE(twin->forceTerminate());
    EXPECT_NE(joined.table.sendSignal(higher, SIGKILL), 0) << "it may have the unsaved work";
    EXPECT_TRUE(twin->terminate());
    EXPECT_THAT(second.asked,
                ElementsAre(std::pair(WindowId{1}, lower), std::pair(WindowId{2}, lower)));
    EXPECT_TRUE(machine.isRunning(client)) << "a window there has the same number";

    activations = 0;
    second.all.pop_back();
    second.active = 1;
    // The X client has the keyboard until then, as X tells it.
    EXPECT_TRUE(joined.workspace.runningApplication(client)->terminate());
    EXPECT_TRUE(waitFor([&] { return !machine.isRunning(client); }));
    second.activeChanged.emit();
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return activations > 0; }));
    EXPECT_EQ(joined.workspace.frontmostApplication()->processIdentifier, lower);
}

TEST_F(JoinedWindowSystems, FollowTheWindowsOfCandidatesWhileTheyEnd) {
    ASSERT_EQ(joined.listed(), (Listed{{lower, {lower, higher}}}));
    const auto twin = joined.workspace.runningApplication(lower);
    // A window of its own, which is no part of the row.
    TopLevelWindow own = window(3);
    own.candidates.clear();
    own.process = higher;
    own.certainty = ProcessCertainty::certain;
    second.all = {window(2), own};
    const ApplicationSnapshot rows = joined.workspace.runningApplications();
    EXPECT_EQ(rows.size(), 2U);
    EXPECT_TRUE(std::ranges::none_of(rows, &WorkspaceApplication::canBeForced));
    // The lower one has ended with the first.
    second.all[0].candidates.clear();
    second.all[0].process = higher;
    second.all[0].certainty = ProcessCertainty::claimed;
    EXPECT_FALSE(twin->isTerminated());
    EXPECT_TRUE(twin->terminate());
    EXPECT_THAT(second.asked, ElementsAre(std::pair(WindowId{2}, higher)));

    second.all = {own, window(4)};
    EXPECT_FALSE(twin->isTerminated()) << "the new one may be a question";
    second.all = {own};
    EXPECT_TRUE(twin->isTerminated());
    EXPECT_FALSE(twin->terminate());
    EXPECT_EQ(second.asked.size(), 1U);
}

TEST_F(JoinedWindowSystems, ProtectAllCandidatesForOne) {
    const auto twin = joined.workspace.runningApplication(lower);
    machine.bus.carriers = {higher};
    EXPECT_FALSE(twin->terminate());
    EXPECT_EQ(joined.listed(), Listed{});
    EXPECT_TRUE(second.asked.empty());
}

} // namespace
} // namespace calmora
