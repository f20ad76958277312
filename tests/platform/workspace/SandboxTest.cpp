// SPDX-License-Identifier: MIT
#include "WorkspaceTest.h"

#include "support/Sandbox.h"

#include <iterator>
#include <sched.h>
#include <sys/mount.h>
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

TEST(SandboxTest, AnAppImageIsItsMountAndNothingElse) {
    SandboxDesktop machine;
    machine.install("example", "Name=Example Image\nExec=AppRun");
    const auto mounted = [&](const std::string& name, const std::string& entry) {
        const fs::path mount = machine.desktop.home() / (".mount_" + name);
        fs::create_directories(mount / "usr");
        fs::copy(machine.programs, mount / "usr/bin", fs::copy_options::recursive);
        std::ofstream(mount / (entry + ".desktop")) << "[Desktop Entry]\n";
        return mount;
    };
    const auto start = [&](const fs::path& mount, const fs::path& program,
                           const std::vector<std::string>& options) {
        std::vector<std::string> words = options;
        words.insert(words.begin(), program.string());
        return machine.shown(machine.desktop.start(
            words, {{"APPDIR", mount.string()},
                    {"APPIMAGE", (machine.desktop.home() / "Example.AppImage").string()}}));
    };
    const fs::path mount = mounted("ExampA", "example");
    const fs::path again = mounted("ExampB", "example");
    const fs::path other = mounted("Other1", "other");
    const std::string helper = (mount / "usr/bin/helper").string();
    const pid_t app = start(mount, mount / "usr/bin/app", {"--orphan", helper});
    const pid_t second = start(again, again / "usr/bin/app", {});
    // What is started from an image inherits its environment.
    const std::vector<pid_t> bystanders = {
        start(mount, machine.programs / "app", {"--class", "Started"}),
        start(other, other / "usr/bin/app", {"--class", "Other"})};
    EXPECT_EQ(machine.listed(app)->localizedName, "Example Image");
    EXPECT_EQ(machine.workspace.runningApplication(app)->bundleURL(), mount.string() + "/");
    EXPECT_TRUE(machine.quitter.quitApp(app, true));
    EXPECT_FALSE(machine.isRunning(second)) << "another mount of the same image";
    EXPECT_TRUE(std::ranges::none_of(machine.table.allProcesses(), [&](ProcessId process) {
        return machine.table.executablePath(process) == helper && machine.isRunning(process);
    }));
    for (const pid_t process : bystanders) {
        EXPECT_TRUE(machine.isRunning(process));
    }
}

/// Control groups as systemd makes them for snaps; gone with this object, once they are empty.
class SnapGroups {
  public:
    SnapGroups() {
        std::ifstream mounts("/proc/self/mounts");
        for (std::string device, place, type, line; mounts >> device >> place >> type;) {
            std::getline(mounts, line);
            if (type == "cgroup2") {
                top_ = fs::path(place) / ("calmora-test-" + std::to_string(::getpid()));
            }
        }
    }

    SnapGroups(const SnapGroups&) = delete;
    SnapGroups& operator=(const SnapGroups&) = delete;

    ~SnapGroups() {
        std::error_code error;
        for (const fs::path& group : made_) {
            fs::remove(group, error);
        }
        fs::remove(top_, error);
    }

    /// The command in a group of its own for one start of the snap "hello"; empty where none can
    /// be made.
    std::vector<std::string> started(std::vector<std::string> command, int start) {
        const fs::path group = top_ / ("snap.hello.hello-0a1b2c3d-1111-2222-3333-00000000000" +
                                       std::to_string(start) + ".scope");
        std::error_code error;
        if (top_.empty() || (fs::create_directories(group, error), error)) {
            return {};
        }
        made_.push_back(group);
        const std::vector<std::string> words = {
            "/bin/sh", "-c", "echo $$ > " + (group / "cgroup.procs").string() + " && exec \"$@\"",
            "sh"};
        command.insert(command.begin(), words.begin(), words.end());
        return command;
    }

  private:
    fs::path top_;
    std::vector<fs::path> made_;
};

/// Gives this process a /var/lib of its own.
bool hidePackageFolders() {
    return ::unshare(CLONE_NEWNS) == 0 &&
           ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("tmpfs", "/var/lib", "tmpfs", 0, nullptr) == 0;
}

TEST(SandboxTest, ASnapIsItsRevisionAndNothingElseOfItsGroup) {
    SnapGroups groups;
    SKIP_WITHOUT_RIGHT(!groups.started({}, 0).empty() && hidePackageFolders(),
                       "make control groups and mounts");
    SandboxDesktop machine;
    machine.install("hello_hello", "Name=Hello\nExec=/snap/bin/hello");
    const fs::path snap = "/var/lib/snapd/snap/hello/42";
    const fs::path other = "/var/lib/snapd/snap/other/7";
    for (const fs::path& revision : {snap, other}) {
        fs::create_directories(revision);
        fs::copy(machine.programs, revision / "bin", fs::copy_options::recursive);
    }
    const auto start = [&](const std::vector<std::string>& command, int group) {
        return machine.desktop.start(groups.started(command, group));
    };
    const std::string helper = (snap / "bin/helper").string();
    const pid_t app =
        machine.shown(start({snap / "bin/app", "--ignore-term", "--child", helper}, 1));
    const pid_t second = machine.shown(start({snap / "bin/app"}, 2));
    // What a confined snap runs may be its base's, which is the root there.
    auto confined = machine.inSandbox("org.example.None", "1", {"/app/bin/app"});
    std::ranges::replace(confined, std::string("/.flatpak-info"), std::string("/.base"));
    const pid_t third = machine.shown(descendantOf(start(confined, 3), 2));
    const std::vector<pid_t> bystanders = {
        machine.shown(start({machine.programs / "app", "--class", "System"}, 1)),
        machine.shown(start({other / "bin/app", "--class", "Other"}, 1)),
        start({other / "bin/helper", "--helper"}, 1)};
    for (const pid_t process : {app, second, third}) {
        EXPECT_EQ(machine.listed(process)->bundleIdentifier, "hello_hello");
        EXPECT_EQ(machine.listed(process)->localizedName, "Hello");
    }
    EXPECT_EQ(machine.workspace.runningApplication(app)->bundleURL(), snap.string() + "/");
    EXPECT_TRUE(machine.quitter.quitApp(second, false));
    EXPECT_TRUE(machine.isRunning(app) && machine.isRunning(third));
    const pid_t child = descendantOf(app, 1);
    EXPECT_TRUE(machine.quitter.quitApp(app, true));
    for (const pid_t process : {app, child, third}) {
        EXPECT_FALSE(machine.isRunning(process));
    }
    for (const pid_t process : bystanders) {
        EXPECT_TRUE(machine.isRunning(process));
    }
}

} // namespace
} // namespace calmora
