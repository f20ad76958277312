// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <span>
#include <string>

class QDBusConnection;

namespace calmora {

struct LinuxMachine;
class WindowBackend;

/// What the program sees and uses here, for reports of faults, in English: the session, the sources
/// of the list, what does not work, and for each of `processes` why it is listed or not.
[[nodiscard]] std::string diagnosis(WindowBackend& backend, LinuxMachine& machine,
                                    const QDBusConnection& sessionBus,
                                    std::span<const ProcessId> processes);

} // namespace calmora
