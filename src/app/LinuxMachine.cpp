// SPDX-License-Identifier: MIT
#include "app/LinuxMachine.h"

#include "app/Identity.h"
#include "platform/linux/EventPoll.h"
#include "platform/linux/windows/WindowRoles.h"
#include "platform/linux/xdg/BaseDirectories.h"

#include <cstdlib>

namespace calmora {

LinuxMachine::LinuxMachine(EventPoll& events, WindowSystem& windows,
                           const QDBusConnection& sessionBus, AlertSession& alertSession)
    : bundle(identity::identifier, identity::version), sounds(identity::name, identity::identifier),
      bus(sessionBus), memory(reader),
      installed(BaseDirectories::fromEnvironment(),
                messageLocales([](const char* name) { return std::getenv(name); })),
      guard(reader, clock,
            {.display = [&windows] { return windows.displayProcesses(); },
             .busOwners = [this] { return bus.protectedProcesses(); },
             .isAutostarted =
                 [this](const auto& commandLine, const auto& executable) {
                     return installed.sessionAutostart().starts(commandLine, executable);
                 },
             .hasRegularWindow =
                 [&windows](ProcessId process) {
                     return calmora::hasRegularWindow(windows.windows(), process);
                 },
             .environment = {}}),
      processes(reader, memory, guard,
                [&windows](ProcessId process) {
                    return isOneOfSeveralOwners(windows.windows(), process);
                }),
      workspace({.clock = clock,
                 .events = events,
                 .windows = windows,
                 .reader = reader,
                 .memory = memory,
                 .processes = processes,
                 .installed = installed,
                 .protection = guard,
                 .bus = bus,
                 .home = BaseDirectories::fromEnvironment().home.string()}),
      watch(events.descriptor(), alertSession, [&events] { events.dispatch(); }),
      uses({.sessionBus = sessionBus,
            .systemBus = systemBus,
            .windows = windows,
            .reader = reader,
            .running = [this] { return workspace.runningApplications(); },
            .applicationName = identity::name}),
      away(sessionBus, systemBus) {}

} // namespace calmora
