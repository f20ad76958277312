// The workspace over an X server and a second window system, which names applications only.
#include "WorkspaceTest.h"

#include "fakes/FakeWindowSystem.h"
#include "platform/linux/windows/CompositeWindowSystem.h"

#include <csignal>

namespace calmora {
namespace {

using testing::ElementsAre;

TEST(JoinedWindowSystems, MakeOneListInWhichUntoldOwnersAreOnlyAsked) {
    LinuxDesktop machine;
    const RealProcess one;
    const RealProcess other;
    const auto [lower, higher] = std::minmax({one.id(), other.id()});
    FakeWindowSystem second;
    for (const WindowId id : {WindowId{1}, WindowId{2}}) {
        TopLevelWindow window;
        window.id = id;
        window.candidates = {lower, higher};
        window.applicationId = "org.example.Twin";
        window.canBeAsked = true;
        second.all.push_back(window);
    }
    CompositeWindowSystem windows({&machine.windows, &second});
    LinuxProcessTable table(machine.reader, machine.memory, machine.guard, [&](ProcessId process) {
        return isOneOfSeveralOwners(windows.windows(), process);
    });
    LinuxWorkspace workspace({machine.clock,
                              machine.events,
                              windows,
                              machine.reader,
                              machine.memory,
                              table,
                              machine.installed,
                              machine.guard,
                              machine.bus,
                              {}});
    const auto listed = [&] {
        std::vector<ProcessId> processes;
        for (const auto& application : workspace.runningApplications()) {
            processes.push_back(application.processIdentifier);
        }
        std::ranges::sort(processes);
        return processes;
    };
    int activations = 0;
    const auto activated = workspace.onActivated([&](const auto&) { ++activations; });

    const pid_t client = machine.client();
    EXPECT_TRUE(waitFor([&, lower = lower] {
        return listed() == std::vector<ProcessId>{lower, client};
    })) << testing::PrintToString(listed());

    const auto twin = workspace.runningApplication(lower);
    EXPECT_FALSE(twin->forceTerminate());
    EXPECT_NE(table.sendSignal(higher, SIGKILL), 0) << "it may be the one with unsaved work";
    EXPECT_TRUE(twin->terminate());
    EXPECT_THAT(second.asked,
                ElementsAre(std::pair(WindowId{1}, lower), std::pair(WindowId{2}, lower)));
    EXPECT_TRUE(machine.isRunning(client)) << "a window there has the same number";

    activations = 0;
    second.all.pop_back();
    second.active = 1;
    // The X client has the keyboard until then, as X tells it.
    EXPECT_TRUE(workspace.runningApplication(client)->terminate());
    EXPECT_TRUE(waitFor([&] { return !machine.isRunning(client); }));
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return activations > 0; }));
    EXPECT_EQ(workspace.frontmostApplication()->processIdentifier, lower);
}

} // namespace
} // namespace calmora
