// SPDX-License-Identifier: MIT
#include "WorkspaceTest.h"

#include <unistd.h>

namespace calmora {
namespace {

/// The name in a desktop entry of the system, where it differs between releases.
std::string installedName(const std::string& entryId) {
    std::ifstream entry("/usr/share/applications/" + entryId + ".desktop");
    for (std::string line; std::getline(entry, line);) {
        if (line.starts_with("Name=")) {
            return line.substr(5);
        }
    }
    return {};
}

TEST(RealApplicationsTest, AreRecognisedAndQuitWhenAsked) {
    const struct {
        std::string name;
        std::string identifier;
        std::string displayName;
        std::string executable;
    } rows[] = {
        {"pcmanfm", "com.apple.finder", installedName("pcmanfm"), "/usr/bin/pcmanfm"},
        // python3 is a link: the name has the version.
        {"meld", "org.gnome.Meld", "Meld", std::filesystem::canonical("/usr/bin/python3")},
    };

    for (const auto& expected : rows) {
        SCOPED_TRACE(expected.name);
        LinuxDesktop machine({.sessionBus = true});
        const pid_t process = machine.shown(machine.desktop.start({expected.name}));
        const auto application = machine.listed(process);
        ASSERT_TRUE(application && application->icon);
        EXPECT_EQ(application->bundleIdentifier, expected.identifier);
        EXPECT_EQ(application->localizedName, expected.displayName);
        const auto running = machine.workspace.runningApplication(process);
        ASSERT_TRUE(running);
        EXPECT_EQ(running->executableURL(), expected.executable);
        // Both live in folders that they share: nothing may run below what is given out.
        const std::string bundle = running->bundleURL().value_or("");
        EXPECT_TRUE(bundle.ends_with('/')) << bundle;
        for (const ProcessId other : machine.table.allProcesses()) {
            EXPECT_FALSE(machine.table.executablePath(other).value_or("").starts_with(bundle));
        }
        EXPECT_TRUE(machine.quitter.quitApp(process, false));
        EXPECT_FALSE(machine.isRunning(process) || machine.listed(process));
        EXPECT_TRUE(machine.isRunning(machine.desktop.windowManager()));
    }
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
