// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakePlatform.h"
#include "model/AppQuitter.h"
#include "platform/linux/EventPoll.h"
#include "platform/linux/proc/LinuxClock.h"
#include "platform/linux/proc/LinuxProcessTable.h"
#include "platform/linux/protection/SessionGuard.h"
#include "platform/linux/windows/CompositeWindowSystem.h"
#include "platform/linux/windows/WindowRoles.h"
#include "platform/linux/workspace/BusApplications.h"
#include "platform/linux/workspace/LinuxWorkspace.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "platform/x11/X11WindowSystem.h"
#include "support/RealProcess.h"
#include "support/VirtualDesktop.h"
#include "support/Waiting.h"

#include <sstream>
#include <unistd.h>

namespace calmora {

/// A session bus as a test wants it.
struct FakeBus final : BusApplications {
    bool ownsStatusItem(ProcessId process) const override { return items.contains(process); }

    std::vector<ProcessId> statusItemProcesses() const override {
        return {items.begin(), items.end()};
    }

    bool isMediaPlayer(ProcessId process) const override { return players.contains(process); }

    bool quitMediaPlayer(ProcessId process) override {
        quits.push_back(process);
        return players.contains(process);
    }

    void learnActions(const ExportedActions&) override {}

    bool activateQuit(const ExportedActions&) override { return false; }

    std::vector<ProcessId> protectedProcesses() const override { return carriers; }

    Subscription onChanged(std::function<void()>) override {
        return Subscription([] {});
    }

    void flush() override {}

    std::vector<ProcessId> carriers;
    std::set<ProcessId> items;
    std::set<ProcessId> players;
    std::vector<ProcessId> quits;
};

/// Whether processWithId() can do its work, which needs root.
inline bool canChooseProcessIds() {
    std::ofstream file("/proc/sys/kernel/ns_last_pid");
    return static_cast<bool>(file << ::getpid() << std::flush);
}

/// A process with this id, which must be free and runs `body` as RealProcess does; null where it
/// cannot be had.
inline std::unique_ptr<RealProcess>
processWithId(pid_t id, const std::function<void()>& body = [] {}) {
    for (int attempt = 0; attempt < 50; ++attempt) {
        std::ofstream("/proc/sys/kernel/ns_last_pid") << id - 1;
        auto process = std::make_unique<RealProcess>([&] {
            if (::getpid() == id) {
                body();
            }
        });
        if (process->id() == id) {
            return process;
        }
    }
    return nullptr;
}

/// Repeats what needs a process id to be free, which other programs may take: `attempt` gives
/// whether it was.
inline void untilFree(const std::function<bool()>& attempt) {
    bool wasFree = false;
    for (int times = 0; times < 5 && !wasFree; ++times) {
        wasFree = attempt();
    }
    EXPECT_TRUE(wasFree);
}

/// The Linux layer on a virtual desktop, as the program composes it.
struct LinuxDesktop {
    explicit LinuxDesktop(const VirtualDesktopOptions& options = {}) : desktop(options) {}

    VirtualDesktop desktop;
    LinuxClock clock;
    EventPoll events;
    /// WAYLAND_DISPLAY of the session; empty for none.
    std::string waylandDisplay;
    X11WindowSystem windows{events, desktop.display(), [this](const char* name) {
                                const bool isIt = std::string_view(name) == "WAYLAND_DISPLAY";
                                return isIt ? waylandDisplay.c_str() : desktop.variable(name);
                            }};
    ProcessReader reader;
    ProcessMemory memory{reader};
    SessionGuard guard{
        reader,
        clock,
        {.display = [this] { return windows.displayProcesses(); },
         .busOwners = [this] { return bus.protectedProcesses(); },
         .isAutostarted =
             [this](const auto& commandLine, const auto& executable) {
                 return installed.sessionAutostart().starts(commandLine, executable);
             },
         .hasRegularWindow =
             [this](ProcessId process) { return hasRegularWindow(windows.windows(), process); },
         .environment = [this](const char* name) { return desktop.variable(name); }}};
    LinuxProcessTable table{reader, memory, guard};
    InstalledApplications installed{BaseDirectories::fromEnvironment([this](const char* name) {
                                        return desktop.variable(name);
                                    }),
                                    {}};
    FakeBus bus;
    LinuxWorkspace workspace{{clock, events, windows, reader, memory, table, installed, guard, bus,
                              desktop.home().string()}};
    FakePlatform rest;
    AppQuitter quitter{Platform{workspace, table, clock, rest.runLoop, rest.bundle, rest.text,
                                rest.strings, rest.sounds, rest.alerts}};

    /// Starts the test program with the habits that `options` name.
    pid_t client(std::vector<std::string> options = {}) {
        options.insert(options.begin(), windowClient());
        return desktop.start(options);
    }

    /// Puts the test program at a path below the home folder; gives the whole path.
    [[nodiscard]] std::string program(const std::string& file) const {
        const auto path = desktop.home() / file;
        std::filesystem::create_directories(path.parent_path());
        std::filesystem::copy_file(windowClient(), path,
                                   std::filesystem::copy_options::skip_existing);
        return path;
    }

    /// Installs a desktop entry with these lines.
    void install(const std::string& id, const std::string& lines,
                 const std::string& folder = "data/applications") const {
        std::filesystem::create_directories(desktop.home() / folder);
        std::ofstream(desktop.home() / folder / (id + ".desktop"))
            << "[Desktop Entry]\nType=Application\n"
            << lines << '\n';
    }

    /// The listed application with this process id.
    std::optional<WorkspaceApplication> listed(pid_t process) {
        for (auto& application : workspace.runningApplications()) {
            if (application.processIdentifier == process) {
                return application;
            }
        }
        return {};
    }

    std::optional<ActivationPolicy> policyOf(pid_t process) {
        const auto application = listed(process);
        return application ? std::optional(application->activationPolicy) : std::nullopt;
    }

    bool isRegular(pid_t process) { return policyOf(process) == ActivationPolicy::regular; }

    /// Waits until the process is an application with windows; gives its id.
    pid_t shown(pid_t process) {
        EXPECT_TRUE(waitFor([&] { return isRegular(process); })) << whyHidden(process);
        return process;
    }

    /// What may tell why a process is not listed.
    std::string whyHidden(pid_t process) {
        std::ostringstream facts;
        facts << "process " << process << (isRunning(process) ? "" : " has ended")
              << (desktop.exitStatus(desktop.windowManager()) ? ", no window manager" : "")
              << (guard.reason(process) ? ", protected" : "") << ", windows of";
        for (const TopLevelWindow& window : windows.windows()) {
            facts << ' ' << window.process.value_or(0);
        }
        desktop.run({"xwininfo", "-root", "-tree"});
        return facts.str() + '\n' + desktop.log();
    }

    /// How many windows the process has.
    std::size_t windowCount(pid_t process) {
        const auto& all = windows.windows();
        return static_cast<std::size_t>(
            std::ranges::count(all, std::optional<ProcessId>(process), &TopLevelWindow::process));
    }

    bool isRunning(pid_t process) { return !memory.isGone(process); }
};

/// The Linux layer over the desktop's X server and a second window system, as the program joins
/// them.
struct JoinedDesktop {
    JoinedDesktop(LinuxDesktop& desktop, WindowSystem& second)
        : machine(desktop), windows({&desktop.windows, &second}) {}

    LinuxDesktop& machine;
    CompositeWindowSystem windows;
    LinuxProcessTable table{
        machine.reader, machine.memory, machine.guard,
        [this](ProcessId process) { return isOneOfSeveralOwners(windows.windows(), process); }};
    LinuxWorkspace workspace{{machine.clock,
                              machine.events,
                              windows,
                              machine.reader,
                              machine.memory,
                              table,
                              machine.installed,
                              machine.guard,
                              machine.bus,
                              {}}};
    AppQuitter quitter{Platform{workspace, table, machine.clock, machine.rest.runLoop,
                                machine.rest.bundle, machine.rest.text, machine.rest.strings,
                                machine.rest.sounds, machine.rest.alerts}};

    /// Each listed process with the candidates beside it, ascending.
    std::map<ProcessId, std::vector<ProcessId>> listed() {
        std::map<ProcessId, std::vector<ProcessId>> all;
        for (const auto& application : workspace.runningApplications()) {
            all[application.processIdentifier] = application.candidates;
        }
        return all;
    }
};

} // namespace calmora
