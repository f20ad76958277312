// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"
#include "platform/desktop/CanberraSoundOutput.h"
#include "platform/desktop/DbusApplications.h"
#include "platform/desktop/use/DesktopUseSources.h"
#include "platform/desktop/use/SessionAwayTime.h"
#include "platform/linux/IcuText.h"
#include "platform/linux/proc/LinuxClock.h"
#include "platform/linux/proc/LinuxProcessTable.h"
#include "platform/linux/proc/ProcessMemory.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/protection/SessionGuard.h"
#include "platform/linux/workspace/LinuxWorkspace.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "platform/linux/xdg/InstalledBundle.h"
#include "platform/qt/QtRunLoop.h"

#include <QDBusConnection>

namespace calmora {

class EventPoll;
class WindowSystem;

/// The Linux parts of the platform in the order of lifetimes: each uses only those above it.
struct LinuxMachine {
    /// The arguments must outlive this object. `events` are not dispatched while an alert is open.
    LinuxMachine(EventPoll& events, WindowSystem& windows, const QDBusConnection& sessionBus,
                 AlertSession& alertSession);

    LinuxClock clock;
    IcuText text;
    InstalledBundle bundle;
    CanberraSoundOutput sounds;

    DbusApplications bus;
    ProcessReader reader;
    ProcessMemory memory;
    InstalledApplications installed;
    SessionGuard guard;
    LinuxProcessTable processes;
    LinuxWorkspace workspace;
    DescriptorWatch watch;

    BusOnDemand systemBus = systemBusOnDemand();
    DesktopUseSources uses;
    SessionAwayTime away;
};

} // namespace calmora
