// SPDX-License-Identifier: MIT
#include "WorkspaceTest.h"

#include "support/Sandbox.h"

#include <iterator>
#include <unistd.h>

namespace calmora {
namespace {

namespace fs = std::filesystem;

/// A desktop with programs for sandboxes.
struct SandboxDesktop : LinuxDesktop {
    SandboxDesktop() {
        install("org.example.App",
                "Name=Example\nIcon=example\nExec=/usr/bin/flatpak run org.example.App");
    }

    std::vector<std::string> inSandbox(const std::string& id, const std::string& instance,
                                       const std::vector<std::string>& command) {
        return sandboxed(desktop.home(), programs, id, instance, command);
    }

    /// Starts a program in a sandbox; gives the outermost process of the sandbox.
    pid_t startSandboxed(const std::string& id, const std::string& instance,
                         const std::vector<std::string>& command) {
        return desktop.start(inSandbox(id, instance, command));
    }

    const fs::path programs = fs::path(program("programs/app")).parent_path();
    const std::string helper = program("programs/helper");
};

TEST(SandboxTest, AFlatpakIsKnownByItsSandboxAndQuitsWhenAsked) {
    SandboxDesktop machine;
    const pid_t sandbox = machine.startSandboxed("org.example.App", "1234", {"/app/bin/app"});
    const pid_t init = descendantOf(sandbox, 1);
    const pid_t app = machine.shown(descendantOf(init, 1));
    const auto listed = machine.listed(app);
    ASSERT_TRUE(listed);
    EXPECT_EQ(listed->bundleIdentifier, "org.example.App");
    EXPECT_EQ(listed->localizedName, "Example");
    EXPECT_EQ(listed->icon.value_or(Image{}).themeName, "example");
    EXPECT_EQ(machine.workspace.runningApplications().size(), 1U) << "bwrap is none";

    const pid_t other = machine.startSandboxed("org.example.App", "1235", {"/app/bin/app"});
    const pid_t second = machine.shown(descendantOf(other, 2));
    EXPECT_TRUE(machine.quitter.quitApp(app, false));
    EXPECT_EQ(waitFor([&] { return machine.desktop.exitStatus(sandbox).has_value(); }), true);
    EXPECT_EQ(machine.desktop.exitStatus(sandbox), 0) << "it ended by itself, and its sandbox";
    EXPECT_TRUE(machine.isRunning(second)) << "another instance";

    const pid_t deafBox =
        machine.startSandboxed("org.example.Deaf", "1", {"/app/bin/app", "--no-delete"});
    const pid_t deaf = machine.shown(descendantOf(deafBox, 2));
    EXPECT_EQ(machine.listed(deaf)->bundleIdentifier, "org.example.Deaf");
    EXPECT_TRUE(machine.quitter.quitApp(deaf, false)) << "the signal reaches the namespace";
    EXPECT_TRUE(machine.isRunning(second));
}

TEST(SandboxTest, ForcingAFlatpakEndsItsInstancesAndNothingElse) {
    SandboxDesktop machine;
    // The launcher above the sandbox is a shell that would go on.
    std::string launch;
    for (const std::string& word :
         machine.inSandbox("org.example.App", "1234",
                           {"/app/bin/app", "--ignore-term", "--ignore-close", "--child",
                            "/app/bin/helper", "--orphan", "/app/bin/helper"})) {
        launch += "'" + word + "' ";
    }
    const pid_t launcher = machine.desktop.start({"/bin/sh", "-c", launch + "; sleep 60"});
    const pid_t init = descendantOf(launcher, 2);
    const pid_t app = machine.shown(descendantOf(init, 1));
    // Its own first process: the kernel keeps signals from that which it does not handle.
    const pid_t bare = machine.desktop.start(
        machine.inSandbox("org.example.App", "1235", {"--as-pid-1", "/app/bin/app"}));
    const pid_t first = machine.shown(descendantOf(bare, 1));
    std::vector<pid_t> helpers;
    EXPECT_TRUE(waitFor([&] {
        helpers = childrenOf(app);
        std::ranges::copy(childrenOf(init), std::back_inserter(helpers));
        std::erase(helpers, app);
        return helpers.size() == 2;
    }));

    std::vector<pid_t> bystanders = {
        launcher,
        machine.shown(
            descendantOf(machine.startSandboxed("org.example.Other", "1234", {"/app/bin/app"}), 2)),
        descendantOf(machine.startSandboxed("org.example.App", "1234",
                                            {"xdg-dbus-proxy", "unix:path=/none", "/tmp/p"}),
                     2),
        machine.shown(machine.desktop.start({(machine.programs / "app").string()})),
        machine.desktop.start({machine.helper, "--helper"}),
        machine.desktop.windowManager(),
        machine.desktop.server()};
    for (const pid_t helper : helpers) {
        EXPECT_FALSE(machine.listed(helper)) << "also one whose parent has ended";
    }
    EXPECT_TRUE(machine.quitter.quitApp(app, true));
    EXPECT_FALSE(machine.isRunning(app));
    EXPECT_FALSE(machine.isRunning(first)) << "the same application";
    for (const pid_t helper : helpers) {
        EXPECT_FALSE(machine.isRunning(helper)) << helper;
    }
    EXPECT_TRUE(waitFor([&] { return !machine.isRunning(init); })) << "nothing is left in there";
    for (const pid_t process : bystanders) {
        EXPECT_TRUE(machine.isRunning(process)) << machine.reader.comm(process);
    }
}

TEST(SandboxTest, APathBelowAnotherRootIsAnotherProgram) {
    SandboxDesktop machine;
    const std::string path = machine.program("Apps/app/app");
    const fs::path own = fs::path(path).parent_path();
    /// Runs what `source` has at the path of the host's program.
    const auto below = [&](const fs::path& source, const std::string& info,
                           const std::vector<std::string>& options) {
        auto words = machine.inSandbox(
            "org.example.Other", "1", {"--dir", own.parent_path(), "--ro-bind", source, own, path});
        words.insert(words.end(), options.begin(), options.end());
        std::ranges::replace(words, std::string("/.flatpak-info"), info);
        const pid_t process = descendantOf(machine.desktop.start(words), 2);
        EXPECT_TRUE(waitFor([&] { return machine.reader.executable(process) == path; }));
        return process;
    };
    const pid_t app = machine.shown(machine.desktop.start({path, "--class", "Tool"}));
    const pid_t boxed = machine.shown(below(machine.programs, "/.container", {"--class", "Boxed"}));
    EXPECT_TRUE(machine.quitter.quitApp(boxed, true));
    EXPECT_TRUE(machine.isRunning(app)) << "the file at that path here is another one";

    const pid_t ofFlatpak = below(own, "/.flatpak-info", {"--helper"});
    const pid_t ofContainer = below(machine.programs, "/.container", {"--helper"});
    const pid_t sameFile = below(own, "/.container", {"--helper"});
    EXPECT_EQ(machine.workspace.runningApplication(app)->bundleURL(), own.string() + "/");
    EXPECT_TRUE(machine.quitter.quitApp(app, true));
    EXPECT_TRUE(machine.isRunning(ofFlatpak)) << "a flatpak's, whatever file it is";
    EXPECT_TRUE(machine.isRunning(ofContainer)) << "another file at the same path";
    EXPECT_FALSE(machine.isRunning(sameFile)) << "a helper that is only confined";
}

} // namespace
} // namespace calmora
