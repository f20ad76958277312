// SPDX-License-Identifier: MIT
#pragma once

#include "support/TempFolder.h"

#include <functional>
#include <map>
#include <optional>
#include <sys/types.h>
#include <vector>

namespace calmora {

/// The test program with real windows, see window_client.cpp; it lies beside the running one.
[[nodiscard]] std::string windowClient();

/// What a virtual desktop consists of beside its X server.
struct VirtualDesktopOptions {
    /// "openbox", "xfwm4" (which brings a session bus), or empty for none.
    std::string windowManager = "openbox";
    /// A private session bus, without any service that could be started on demand.
    bool sessionBus = false;
    /// A headless sway, which starts an X server for X11 programs, in place of Xvfb and a window
    /// manager. Refuses to run as root.
    bool sway = false;
    /// The same with a virtual KWin, on a session bus.
    bool kwin = false;
    /// An XEMBED tray along the upper edge, its icons at the right.
    bool tray = false;
};

/// A desktop of its own on a free display, with a home folder of its own, for one test. Its end
/// is the end of every process that this process has started, directly or not; when this process
/// dies, so do they. One at a time.
class VirtualDesktop {
  public:
    using Environment = std::map<std::string, std::string>;

    /// Throws std::runtime_error when a part of it does not come up in time.
    explicit VirtualDesktop(const VirtualDesktopOptions& options = {});
    VirtualDesktop(const VirtualDesktop&) = delete;
    VirtualDesktop& operator=(const VirtualDesktop&) = delete;
    ~VirtualDesktop();

    /// The display, such as ":7".
    [[nodiscard]] const std::string& display() const { return display_; }

    /// A temporary folder that is HOME, with the XDG folders in it.
    [[nodiscard]] const std::filesystem::path& home() const { return folder_.path(); }

    /// Gives this process the environment of programs on this desktop.
    void enter() const;

    /// The value of a variable on this desktop; null when it is not set there.
    [[nodiscard]] const char* variable(const char* name) const;

    /// The X server, or the compositor.
    [[nodiscard]] pid_t server() const { return server_; }

    /// 0 without one.
    [[nodiscard]] pid_t windowManager() const { return windowManager_; }

    [[nodiscard]] pid_t tray() const { return tray_; }

    /// Starts a program with `extra` added to the environment; its output goes to "log" in home().
    /// Gives its process id; a program that cannot be started ends at once with status 127.
    pid_t start(const std::vector<std::string>& command, const Environment& extra = {});

    /// Runs a program to its end: its exit status, absent when it was killed or takes too long.
    std::optional<int> run(const std::vector<std::string>& command);

    /// Starts a window manager, which must not be running; returns when it answers.
    void startWindowManager(const std::string& name);

    /// The same for KWin.
    void startKwin();

    /// Kills one process that start() gave and collects it.
    void end(pid_t process);

    /// The exit status of a process that start() gave, as waitpid(2) tells it; absent while it
    /// runs. Collects the process.
    std::optional<int> exitStatus(pid_t process);

    /// What the programs have written so far.
    [[nodiscard]] std::string log() const { return TempFolder::read(home() / "log"); }

  private:
    struct Bare {};

    /// A desktop without a server.
    explicit VirtualDesktop(Bare bare);
    /// Waits for the condition; throws when it does not come true.
    void require(const std::function<bool()>& condition, const std::string& what);
    /// Starts a program and gives the line that it writes to descriptor 9.
    std::string startReporting(pid_t& process, const std::string& command);
    /// Waits for the line that a program writes to the report, and gives it.
    std::string awaitReport(const std::string& program);
    void startBus();
    void startSway();
    void startSettingsDaemon();

    const TempFolder folder_;
    const std::filesystem::path report_ = home() / "report";
    std::string display_;
    Environment environment_;
    std::map<pid_t, std::optional<int>> statuses_;
    pid_t server_ = 0;
    pid_t windowManager_ = 0;
    pid_t sessionBus_ = 0;
    pid_t tray_ = 0;
};

} // namespace calmora
