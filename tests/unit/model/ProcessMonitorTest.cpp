#include "model/ProcessMonitor.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace calmora {
namespace {

using enum ActivationPolicy;

std::string listing(const std::vector<AppInfo>& apps) {
    std::string text;
    for (const AppInfo& app : apps) {
        text += app.name + ":" + std::to_string(app.pid);
        if (app.parentBundleIdentifier) {
            text += "<" + *app.parentBundleIdentifier;
        }
        if (app.childProcesses) {
            text += "[" + listing(*app.childProcesses) + "]";
        }
        text += " ";
    }
    return text;
}

FakeApplication application(ProcessId pid, std::optional<std::string> name,
                            std::optional<std::string> identifier,
                            ActivationPolicy policy = regular, ProcessId parent = 1) {
    return {.pid = pid,
            .name = std::move(name),
            .bundleIdentifier = std::move(identifier),
            .policy = policy,
            .process = {.parent = parent}};
}

struct ProcessMonitorTest : testing::Test {
    std::vector<AppInfo> runningApps(bool includeFinder) {
        return monitor.getRunningApps(machine.workspace.runningApplications(), includeFinder);
    }

    std::vector<AppInfo> backgroundApps() {
        return monitor.getBackgroundApps(machine.workspace.runningApplications());
    }

    FakePlatform machine;
    ProcessMonitor monitor{machine.platform()};
};

TEST_F(ProcessMonitorTest, ListsRegularApplicationsByName) {
    for (const FakeApplication& app : {
             application(10, "beta", "org.b"),
             application(11, "Alpha", std::nullopt),
             application(12, "BETA", "org.b2"),
             application(13, "Calmora", "app.calmora.Calmora"),
             application(14, "", "org.empty"),
             application(16, "Agent", "org.agent", accessory),
             application(17, "Files", "com.apple.finder"),
             application(18, "files", "com.apple.Finder"),
         }) {
        machine.workspace.launch(app);
    }
    EXPECT_EQ(listing(runningApps(true)), "Alpha:11 beta:10 BETA:12 Files:17 files:18 ");
    EXPECT_EQ(listing(runningApps(false)), "Alpha:11 beta:10 BETA:12 files:18 ");
}

TEST_F(ProcessMonitorTest, KeepsTheWorkspacesOrderOfEqualNames) {
    for (ProcessId pid = 1; pid <= 100; ++pid) {
        machine.workspace.launch(application(pid, pid % 2 ? "Twin" : "twin", "org.twin"));
    }
    const std::vector<AppInfo> apps = runningApps(true);
    EXPECT_TRUE(std::ranges::is_sorted(apps, {}, &AppInfo::pid));
}

TEST_F(ProcessMonitorTest, ListsBackgroundApplicationsWithTheirDirectParent) {
    for (const FakeApplication& app : {
             application(20, "Editor", "org.example.PhotoEditor"),
             application(21, "Nameless", std::nullopt),
             application(22, "helper", "org.helper", accessory, 20),
             application(23, "Agent", "org.agent", prohibited, 22),
             application(24, "Orphan", "org.orphan", accessory, 99),
             application(25, "Child", "org.child", accessory, 21),
             application(26, "Anonymous", std::nullopt, accessory, 20),
             application(28, "Calmora", "app.calmora.Calmora", accessory, 20),
             application(29, "Files", "com.apple.finder", accessory),
         }) {
        machine.workspace.launch(app);
    }
    machine.processes.at(29).parent.reset();
    const std::vector<AppInfo> apps = backgroundApps();
    EXPECT_EQ(listing(apps),
              "Agent:23 Child:25 Files:29 helper:22<org.example.PhotoEditor Orphan:24 ");
    EXPECT_TRUE(apps.front().isBackgroundApp);

    machine.processes.at(22).parent = 0;
    EXPECT_EQ(listing(backgroundApps()), "Agent:23 Child:25 Files:29 helper:22 Orphan:24 ");
}

TEST_F(ProcessMonitorTest, FoldsBackgroundApplicationsUnderTheirParents) {
    const auto member = [](ProcessId pid, std::string name, std::optional<std::string> parent) {
        return AppInfo{
            .pid = pid, .name = name, .icon = Image{name}, .parentBundleIdentifier = parent};
    };
    const std::vector<AppInfo> rows = monitor.groupBackgroundApps({
        member(5, "z", std::nullopt),
        member(4, "m2", "org.example.PhotoEditor"),
        member(3, "single", "WORD"),
        member(2, "a", std::nullopt),
        member(1, "m1", "org.example.PhotoEditor"),
        member(6, "low", "com.b.two words"),
    });
    EXPECT_EQ(listing(rows),
              "Word:3[single:3<WORD ] Two Words:6[low:6<com.b.two words ] "
              "Photoeditor:4[m2:4<org.example.PhotoEditor m1:1<org.example.PhotoEditor ] z:5 a:2 ");
    const AppInfo& group = rows[2];
    EXPECT_TRUE(group.isSelected && group.isBackgroundApp && !group.isWhitelisted);
    EXPECT_EQ(group.bundleIdentifier, "org.example.PhotoEditor");
    EXPECT_EQ(group.icon->themeName, "m2");
}

} // namespace
} // namespace calmora
