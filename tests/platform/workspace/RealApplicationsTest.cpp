#include "WorkspaceTest.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace calmora {
namespace {

struct RealApplication {
    const char* name;
    /// What the identifier begins with.
    const char* identifier;
    std::string displayName;
    std::string executable;
    /// Its name where none is given.
    std::vector<std::string> command = {};
    /// The entry names a picture.
    bool hasThemeIcon = true;
};

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

/// What runs for python3: the name has the version.
std::string python() {
    return std::filesystem::weakly_canonical("/usr/bin/python3");
}

void PrintTo(const RealApplication& application, std::ostream* out) {
    *out << application.name;
}

class RealApplicationsTest : public testing::TestWithParam<RealApplication> {};

/// xterm passes a request to close on to its shell, which must have started for that.
bool hasShell(LinuxDesktop& machine, pid_t terminal) {
    return std::ranges::any_of(machine.table.allProcesses(), [&](ProcessId process) {
        const auto stat = machine.reader.stat(process);
        return stat && stat->parent == terminal && stat->comm == "bash" && stat->state == 'S';
    });
}

TEST_P(RealApplicationsTest, IsRecognisedAndQuitsWhenAsked) {
    const RealApplication& expected = GetParam();
    LinuxDesktop machine({.sessionBus = true});
    const pid_t process = machine.desktop.start(
        expected.command.empty() ? std::vector<std::string>{expected.name} : expected.command);
    machine.shown(process);
    const auto application = machine.listed(process);
    ASSERT_TRUE(application);
    EXPECT_THAT(application->bundleIdentifier.value_or(""),
                testing::StartsWith(expected.identifier));
    EXPECT_EQ(application->localizedName, expected.displayName);
    if (expected.hasThemeIcon) {
        ASSERT_TRUE(application->icon);
        EXPECT_TRUE(!application->icon->themeName.empty() || !application->icon->file.empty());
    }

    const auto running = machine.workspace.runningApplication(process);
    ASSERT_TRUE(running);
    EXPECT_EQ(running->processIdentifier(), process);
    EXPECT_EQ(running->executableURL().value_or(expected.executable), expected.executable);
    // All of them live in folders that they share: nothing may run below what is given out.
    const std::string bundle = running->bundleURL().value_or("");
    EXPECT_TRUE(bundle.ends_with('/')) << bundle;
    for (const ProcessId other : machine.table.allProcesses()) {
        EXPECT_FALSE(machine.table.executablePath(other).value_or("").starts_with(bundle));
    }

    if (expected.executable == "/usr/bin/xterm") {
        EXPECT_TRUE(waitFor([&] { return hasShell(machine, process); }));
    }
    if (expected.name == std::string("hexchat") && ::geteuid() == 0) {
        // It warns root first; what it shows next is no question about the request.
        EXPECT_FALSE(machine.quitter.quitApp(process, false));
    }
    EXPECT_TRUE(machine.quitter.quitApp(process, false));
    EXPECT_FALSE(machine.isRunning(process));
    EXPECT_FALSE(machine.listed(process));
    EXPECT_TRUE(machine.isRunning(machine.desktop.windowManager()));
}

INSTANTIATE_TEST_SUITE_P(
    Debian, RealApplicationsTest,
    testing::Values(RealApplication{"renamed_xterm",
                                    "debian-xterm",
                                    "XTerm",
                                    "/usr/bin/xterm",
                                    {"xterm", "-class", "Foo", "-name", "foo"}},
                    RealApplication{
                        "xcalc", "exe:/usr/bin/xcalc", "XCalc", "/usr/bin/xcalc", {}, false},
                    RealApplication{"pcmanfm", "com.apple.finder", installedName("pcmanfm"),
                                    "/usr/bin/pcmanfm"},
                    RealApplication{"zathura", "org.pwmt.zathura", "Zathura", "/usr/bin/zathura"},
                    RealApplication{"hexchat", "io.github.Hexchat", "HexChat", "/usr/bin/hexchat"},
                    RealApplication{"meld", "org.gnome.Meld", "Meld", python()}),
    [](const auto& row) { return row.param.name; });

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
