// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDesktop.h"
#include "fakes/FakeLocalizedStrings.h"
#include "fakes/FakeProcessTable.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeUserDefaults.h"
#include "fakes/FakeWorkspace.h"
#include "platform/Platform.h"
#include "platform/linux/IcuText.h"

namespace calmora {

/// A whole machine in memory.
struct FakePlatform {
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeProcessTable processes;
    FakeWorkspace workspace{processes, clock, runLoop};
    FakeBundle bundle;
    IcuText text{"C"};
    FakeLocalizedStrings strings;
    FakeSoundOutput sounds;
    FakeAlerts alerts;
    FakeUserDefaults defaults;
    FakeEventMonitor events;
    FakePopover popover;

    /// The platform for the models.
    Platform platform() {
        return {workspace, processes, clock, runLoop, bundle, text, strings, sounds, alerts};
    }
};

} // namespace calmora
