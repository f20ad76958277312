// SPDX-License-Identifier: MIT
#include "WorkspaceBenchmarks.h"

#include "Children.h"
#include "Compare.h"

#include "fakes/FakePlatform.h"
#include "fakes/FakeWindowSystem.h"
#include "platform/linux/EventPoll.h"
#include "platform/linux/IcuText.h"
#include "platform/linux/proc/LinuxClock.h"
#include "platform/linux/proc/LinuxProcessTable.h"
#include "platform/linux/proc/ProtectedProcesses.h"
#include "platform/linux/workspace/BusApplications.h"
#include "platform/linux/workspace/LinuxWorkspace.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "settings/AppSettings.h"
#include "ui/AppListViewModel.h"

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <dirent.h>

namespace calmora {
namespace {

struct SilentBus final : BusApplications {
    bool ownsStatusItem(ProcessId) const override { return false; }

    std::vector<ProcessId> statusItemProcesses() const override { return {}; }

    bool isMediaPlayer(ProcessId) const override { return false; }

    bool quitMediaPlayer(ProcessId) override { return false; }

    void learnActions(const ExportedActions&) override {}

    bool activateQuit(const ExportedActions&) override { return false; }

    std::vector<ProcessId> protectedProcesses() const override { return {}; }

    Subscription onChanged(std::function<void()>) override { return {}; }

    void flush() override {}
};

struct NoProtection final : ProtectedProcesses {
    bool isProtected(ProcessId) override { return false; }
};

std::size_t nameProcesses() {
    const std::unique_ptr<DIR, decltype([](DIR* folder) { closedir(folder); })> processes(
        opendir("/proc"));
    std::size_t count = 0;
    while (processes && readdir(processes.get())) {
        ++count;
    }
    return count;
}

} // namespace

void refreshOverTheRealWorkspace(benchmark::State& state, std::chrono::seconds age) {
    const Children children(static_cast<std::size_t>(state.range(0)));
    FakePlatform fakes;
    EventPoll events;
    FakeWindowSystem windows;
    for (std::size_t i = 0; i < std::min<std::size_t>(50, children.processes().size()); ++i) {
        TopLevelWindow window;
        window.id = i + 1;
        window.process = children.processes()[i];
        window.certainty = ProcessCertainty::certain;
        window.instance = "program" + std::to_string(i);
        window.className = "Program" + std::to_string(i);
        window.type = WindowType::normal;
        window.canBeAsked = true;
        windows.all.push_back(window);
    }
    ProcessReader reader;
    ProcessMemory memory{reader};
    LinuxClock clock;
    NoProtection protection;
    LinuxProcessTable processes{reader, memory, protection};
    InstalledApplications installed{BaseDirectories::fromEnvironment(), {}};
    SilentBus bus;
    LinuxWorkspace workspace{
        {clock, events, windows, reader, memory, processes, installed, protection, bus, {}}};
    IcuText text{"en_US.UTF-8"};
    AppSettings settings{fakes.defaults};
    AppListViewModel model(settings, {workspace, processes, clock, fakes.runLoop, fakes.bundle,
                                      text, fakes.strings, fakes.sounds, fakes.alerts});
    // Nobody listens: each list looks through /proc by itself.
    model.refresh();
    std::this_thread::sleep_for(age);
    compare(
        state, [&] { model.refresh(); },
        [&] {
            benchmark::DoNotOptimize(nameProcesses());
            benchmark::DoNotOptimize(nameProcesses());
        });
    state.counters["listed"] = static_cast<double>(model.apps().size());
}

} // namespace calmora
