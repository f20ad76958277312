#pragma once

#include <string>

namespace calmora {

class BusApplications;
class Clock;
class EventPoll;
class InstalledApplications;
class ProcessMemory;
class ProcessReader;
class ProcessTable;
class ProtectedProcesses;
class WindowSystem;

/// The workspace's data sources, which must outlive it.
struct WorkspaceSources {
    Clock& clock;
    EventPoll& events;
    WindowSystem& windows;
    const ProcessReader& reader;
    /// Shared with `processes`.
    ProcessMemory& memory;
    ProcessTable& processes;
    InstalledApplications& installed;
    ProtectedProcesses& protection;
    BusApplications& bus;
    /// The user's home folder; empty when it is not known.
    std::string home;
};

} // namespace calmora
