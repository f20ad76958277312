// SPDX-License-Identifier: MIT
#include "WorkspaceTest.h"

namespace calmora {
namespace {

TEST(RealApplicationsTest, TheFileManagerIsRecognisedAndQuitsWhenAsked) {
    LinuxDesktop machine({.sessionBus = true});
    const pid_t process = machine.shown(machine.desktop.start({"pcmanfm"}));
    const auto application = machine.listed(process);
    ASSERT_TRUE(application && application->icon);
    EXPECT_EQ(application->bundleIdentifier, "com.apple.finder");
    // It lives in a folder that it shares: nothing may run below what is given out.
    const auto running = machine.workspace.runningApplication(process);
    const std::string bundle = running->bundleURL().value_or("");
    EXPECT_TRUE(bundle.ends_with('/')) << bundle;
    for (const ProcessId other : machine.table.allProcesses()) {
        EXPECT_FALSE(machine.table.executablePath(other).value_or("").starts_with(bundle));
    }
    EXPECT_TRUE(machine.quitter.quitApp(process, false));
    EXPECT_FALSE(machine.isRunning(process) || machine.listed(process));
    EXPECT_TRUE(machine.isRunning(machine.desktop.windowManager()));
}

TEST(RealDesktopTest, TheDesktopBackgroundIsNoApplication) {
    LinuxDesktop machine({.sessionBus = true});
    const pid_t process = machine.desktop.start({"pcmanfm", "--desktop"});
    ASSERT_TRUE(waitFor([&] { return machine.windowCount(process) > 0; })) << machine.desktop.log();
    EXPECT_FALSE(machine.listed(process));
    EXPECT_FALSE(machine.workspace.runningApplication(process));
    EXPECT_THAT(machine.workspace.runningApplicationsWithBundleIdentifier("com.apple.finder"),
                testing::IsEmpty());
    EXPECT_FALSE(machine.quitter.quitApp(process, true));
    EXPECT_TRUE(machine.isRunning(process));
}

} // namespace
} // namespace calmora
