#pragma once

#include "platform/Platform.h"
#include "platform/linux/dbus/DbusApplications.h"
#include "platform/linux/events/EventPoll.h"
#include "platform/linux/proc/LinuxClock.h"
#include "platform/linux/proc/LinuxProcessTable.h"
#include "platform/linux/proc/ProcessMemory.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/protection/SessionFence.h"
#include "platform/linux/sound/CanberraSoundOutput.h"
#include "platform/linux/text/IcuText.h"
#include "platform/linux/workspace/LinuxWorkspace.h"
#include "platform/linux/x11/X11WindowSystem.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "platform/linux/xdg/InstalledBundle.h"
#include "platform/qt/DescriptorWatch.h"

#include <QDBusConnection>

namespace calmora {

/// The Linux half of the platform, in the order of lifetimes: each part uses only those above it.
struct LinuxMachine {
    /// Notices of the machine wait while an alert is open.
    LinuxMachine(const QDBusConnection& sessionBus, AlertSession& alertSession);

    LinuxClock clock;
    IcuText text;
    InstalledBundle bundle;
    CanberraSoundOutput sounds;

    EventPoll events;
    X11WindowSystem windows;
    DbusApplications bus;
    ProcessReader reader;
    ProcessMemory memory;
    InstalledApplications installed;
    SessionFence fence;
    LinuxProcessTable processes;
    LinuxWorkspace workspace;
    DescriptorWatch watch;
};

} // namespace calmora
