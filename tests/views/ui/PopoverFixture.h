#pragma once

#include "fakes/FakePlatform.h"
#include "settings/AppSettings.h"
#include "ui/AppListViewModel.h"
#include "ui/MenuPopoverView.h"

#include <QWidget>

#include <string>
#include <utility>

namespace calmora {

/// A popover over a machine in memory, in a window of its size.
struct PopoverFixture {
    explicit PopoverFixture(std::string shownLimitation = {})
        : limitation(std::move(shownLimitation)) {
        window.resize(360, 500);
    }

    /// Starts an application that ends at once when it is asked to.
    void launch(ProcessId pid, const std::string& name,
                ActivationPolicy policy = ActivationPolicy::regular,
                std::optional<ProcessId> parent = {}) {
        FakeApplication application;
        application.pid = pid;
        application.name = name;
        application.bundleIdentifier = "org.example." + name.substr(0, 40);
        application.policy = policy;
        application.process.parent = parent;
        application.process.counters = ProcessCounters{};
        machine.workspace.launch(std::move(application));
    }

    /// Samples so that a process has used `percent` of a CPU and `mebibytes` of memory.
    void use(ProcessId pid, double percent, double mebibytes) {
        auto& counters = machine.processes.at(pid).counters;
        counters->physFootprint = static_cast<std::uint64_t>(mebibytes * 1024 * 1024);
        counters->userTime += static_cast<std::uint64_t>(percent * 1e7);
    }

    std::string limitation;
    FakePlatform machine;
    FakeInputGate inputGate;
    AppSettings settings{machine.defaults};
    AppListViewModel model{settings, machine.platform()};
    int settingsOpened = 0;
    QWidget window;
    MenuPopoverView* view = new MenuPopoverView(settings, model,
                                                {.platform = machine.platform(),
                                                 .eventMonitor = machine.events,
                                                 .popover = machine.popover,
                                                 .inputGate = inputGate,
                                                 .openSettings = [this] { ++settingsOpened; },
                                                 .limitation = limitation},
                                                &window);
};

} // namespace calmora
