// SPDX-License-Identifier: MIT
#include "platform/linux/proc/LinuxProcessTable.h"

#include "platform/linux/proc/PidFd.h"
#include "platform/linux/proc/ProcFiles.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string_view>
#include <utility>

#include <sys/stat.h>
#include <sys/sysinfo.h>
#include <unistd.h>

namespace calmora {

namespace {

/// The CPU clock as clock_getcpuclockid(3) computes it, without its extra system call.
clockid_t cpuClockOf(ProcessId process) {
    constexpr clockid_t processWideSchedulerClock = 2;
    return static_cast<clockid_t>((~static_cast<unsigned>(process) << 3U) |
                                  processWideSchedulerClock);
}

/// How many files may stay open of so many in all: a quarter is ProcessMemory's, and some are left
/// for everything else.
std::size_t mostFiles(std::size_t limit) {
    constexpr std::size_t others = 128;
    const std::size_t left = limit - limit / 4;
    return left > 2 * others ? std::max(left - others, limit / 2) : limit / 2;
}

} // namespace

LinuxProcessTable::LinuxProcessTable(const ProcessReader& reader, ProcessMemory& memory,
                                     ProtectedProcesses& protection,
                                     std::function<bool(ProcessId)> isSpared)
    : reader_(reader), memory_(memory), protection_(protection), isSpared_(std::move(isSpared)),
      fileLimit_(mostFiles(openFileLimit())),
      pageSize_(static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE))) {}

std::optional<ProcessId> LinuxProcessTable::parent(ProcessId process) const {
    const ProcessId parent = reader_.parent(process);
    return parent > 0 ? std::optional(parent) : std::nullopt;
}

std::vector<ProcessId> LinuxProcessTable::allProcesses() const {
    constexpr std::size_t most = 4096;
    std::vector<ProcessId> processes = reader_.processesOf(getuid(), most);
    // Leaves out other sessions of the same user. Helpers whose display is unset or unreadable
    // stay.
    const char* variable = std::getenv("DISPLAY");
    const std::string own = displayOf(variable ? variable : "");
    if (!own.empty()) {
        std::erase_if(processes, [&](ProcessId process) {
            const auto display = reader_.display(process);
            return display && !display->empty() && *display != own;
        });
    }
    return processes;
}

std::optional<ProcessCounters> LinuxProcessTable::counters(ProcessId process) {
    if (process < 1) {
        return std::nullopt;
    }
    const auto kept = retained_.find(process);
    if (kept == retained_.end()) {
        CounterFile file;
        return read(process, file);
    }
    if (kept->second.file) {
        if (auto counters = read(process, kept->second)) {
            return counters;
        }
        // The process has ended; the id may have been reused.
        kept->second.file.reset();
    }
    auto counters = read(process, kept->second);
    if (!counters || !kept->second.staysOpen) {
        kept->second.file.reset();
    }
    return counters;
}

std::optional<ProcessCounters> LinuxProcessTable::read(ProcessId process, CounterFile& file) {
    const bool wantsStatus = isSwapInUse();
    if (!file.file || file.isStatus != wantsStatus) {
        file.file = reader_.open(process, wantsStatus ? "status" : "statm");
        file.isStatus = wantsStatus;
        // The file is now bound to a process; check that it is the held one.
        if (!file.file || !isOfHeldProcess(process, file)) {
            return std::nullopt;
        }
    }

    // The clock is read by id, then the file, which is readable only while its process has the id.
    // So both belong to the same process.
    timespec time{};
    if (clock_gettime(cpuClockOf(process), &time) != 0) {
        return std::nullopt;
    }
    std::array<char, 4096> buffer; // Filled as far as it is read.
    const ssize_t length = pread(file.file.get(), buffer.data(), buffer.size(), 0);
    const std::string_view text(buffer.data(), length > 0 ? static_cast<std::size_t>(length) : 0);

    ProcessCounters counters;
    counters.userTime = static_cast<std::uint64_t>(time.tv_sec) * 1'000'000'000U +
                        static_cast<std::uint64_t>(time.tv_nsec);
    if (wantsStatus) {
        const auto status = parseStatus(text);
        // Zombies have no such line.
        if (!status || text.find("\nVmRSS:") == std::string_view::npos) {
            return std::nullopt;
        }
        counters.physFootprint = status->rssAnon + status->vmSwap;
    } else {
        const auto pages = parseStatmAnonymousPages(text);
        if (!pages) {
            return std::nullopt;
        }
        counters.physFootprint = *pages * pageSize_;
    }
    return counters;
}

void LinuxProcessTable::retainCounters(const std::vector<ProcessId>& processes) {
    std::unordered_map<ProcessId, CounterFile> retained;
    for (const ProcessId process : processes) {
        const auto found = retained_.find(process);
        const auto [entry, isNew] = retained.try_emplace(
            process, found == retained_.end() ? CounterFile{} : std::move(found->second));
        entry->second.staysOpen = retained.size() <= fileLimit_;
        if (!entry->second.staysOpen) {
            entry->second.file.reset();
        }
    }
    retained_ = std::move(retained);
}

std::int32_t LinuxProcessTable::sendSignal(ProcessId process, std::int32_t signal) {
    const auto refuse = [](int reason) {
        errno = reason;
        return -1;
    };
    if (process < 1) {
        return refuse(ESRCH);
    }
    std::shared_ptr<const PidFd> descriptor = memory_.descriptor(process);
    if (!descriptor) {
        if (auto opened = PidFd::open(process)) {
            descriptor = std::make_shared<const PidFd>(*std::move(opened));
        } else if (signal != 0 || errno == ESRCH) {
            return refuse(errno);
        }
    }
    // From here on the descriptor is bound to one process. While it runs, reads by id concern it.
    if (memory_.isGone(process) || (descriptor && descriptor->hasExited())) {
        return refuse(ESRCH);
    }
    // Signal 0 only asks whether the process is there.
    const bool isProtected =
        signal == 0 ? protection_.isProtected(process) : protection_.isProtectedNow(process);
    if (isProtected || (isSpared_ && isSpared_(process))) {
        return refuse(memory_.isGone(process) ? ESRCH : EPERM);
    }
    if (signal == 0) {
        return memory_.isGone(process) ? refuse(ESRCH) : 0;
    }
    return descriptor->send(signal);
}

bool LinuxProcessTable::isSwapInUse() {
    // Once a second means once per batch of samples. The coarse clock costs a few nanoseconds.
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    if (swapCheckedAt_ != now.tv_sec) {
        struct sysinfo info{};
        swapInUse_ = sysinfo(&info) == 0 && info.freeswap < info.totalswap;
        swapCheckedAt_ = now.tv_sec;
    }
    return swapInUse_;
}

bool LinuxProcessTable::isOfHeldProcess(ProcessId process, CounterFile& file) const {
    struct stat info{};
    const bool hasNumber = fstat(file.file.get(), &info) == 0;
    if (hasNumber && file.number == info.st_ino) {
        return true; // A tenth of the cost of reading the start time.
    }
    const auto startTime = memory_.startTime(process);
    if (!startTime) {
        return true;
    }
    const auto record = reader_.stat(process);
    const bool isHeld = record && record->startTime == *startTime;
    file.number = isHeld && hasNumber ? info.st_ino : 0;
    return isHeld;
}

} // namespace calmora
