#include "platform/linux/windows/OwnerProcess.h"

#include "platform/linux/proc/ProcessReader.h"

#include <ctime>
#include <memory>
#include <unistd.h>

namespace calmora {

namespace {

std::optional<std::uint64_t> startTime(const ProcessReader& reader, ProcessId process) {
    const auto stat = reader.stat(process);
    return stat && !stat->isGone() ? std::optional(stat->startTime) : std::nullopt;
}

std::optional<OwnerProcess> ownerProcess(const ProcessReader& reader, ProcessId process) {
    const auto stat = reader.stat(process);
    const auto status = reader.status(process);
    if (!stat || stat->isGone() || !status) {
        return {};
    }
    OwnerProcess owner{
        status->namespaceIds, stat->startTime, status->realUser == ::getuid(), {stat->comm}};
    if (owner.ids.empty()) {
        owner.ids = {process};
    }
    if (const auto program = reader.executable(process)) {
        owner.names.push_back(program->substr(program->rfind('/') + 1));
    }
    return owner;
}

} // namespace

OwnerLookup ownersFromKernel() {
    const auto reader = std::make_shared<const ProcessReader>();
    return {[reader](ProcessId process) { return startTime(*reader, process); },
            [reader](ProcessId process) { return ownerProcess(*reader, process); }};
}

std::uint64_t ticksNow() {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    const auto second = static_cast<std::uint64_t>(::sysconf(_SC_CLK_TCK));
    return static_cast<std::uint64_t>(now.tv_sec) * second +
           static_cast<std::uint64_t>(now.tv_nsec) * second / 1'000'000'000U;
}

} // namespace calmora
