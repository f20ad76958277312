// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDesktopExtension.h"
#include "fakes/FakeLauncher.h"
#include "fakes/FakePlatform.h"
#include "model/QuitTogether.h"
#include "model/ReopenList.h"
#include "settings/AppSettings.h"
#include "settings/ExtraSettings.h"
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
        window.resize(Points{360}, Points{500});
    }

    /// Starts an application that ends at once when it is asked to.
    void launch(ProcessId pid, const std::string& name,
                ActivationPolicy policy = ActivationPolicy::regular,
                std::optional<ProcessId> parent = {}) {
        machine.workspace.launch({.pid = pid,
                                  .name = name,
                                  .bundleIdentifier = "org.example." + name,
                                  .policy = policy,
                                  .process = {.parent = parent}});
    }

    std::string limitation;
    FakeDesktopExtension extension;
    FakePlatform machine;
    FakeInputGate inputGate;
    AppSettings settings{machine.defaults};
    ExtraSettings extras{machine.defaults};
    QuitTogether together{machine.platform()};
    AppListViewModel model{settings, machine.platform(), &together};
    int settingsOpened = 0;
    FakeLauncher launcher;
    ReopenList reopening{machine.workspace, launcher};
    Subscription restarts = together.onGone(
        [this](const std::vector<AppInfo>& gone) { reopening.restartPrepared(gone); });
    Subscription endings = together.onFinished(
        [this](const std::vector<AppInfo>& ended) { reopening.remember(ended); });
    QWidget window;
    MenuPopoverView* view = new MenuPopoverView(settings, model,
                                                {.platform = machine.platform(),
                                                 .eventMonitor = machine.events,
                                                 .popover = machine.popover,
                                                 .inputGate = inputGate,
                                                 .openSettings = [this] { ++settingsOpened; },
                                                 .limitation = [this] { return limitation; },
                                                 .reopenList = &reopening,
                                                 .extension = &extension,
                                                 .extras = &extras,
                                                 .together = &together},
                                                &window);
};

} // namespace calmora
