#include "platform/linux/proc/ProcessMemory.h"

#include <sys/resource.h>

namespace calmora {

namespace {

std::size_t quarterOfOpenFiles() {
    rlimit limit{};
    constexpr std::size_t usual = 1024;
    const std::size_t files = getrlimit(RLIMIT_NOFILE, &limit) == 0 ? limit.rlim_cur : usual;
    return files / 4;
}

} // namespace

ProcessMemory::ProcessMemory(const ProcessReader& reader,
                             std::optional<std::size_t> descriptorLimit)
    : reader_(reader), descriptorLimit_(descriptorLimit.value_or(quarterOfOpenFiles())) {}

bool ProcessMemory::hold(ProcessId process) {
    if (held_.contains(process) && !isGone(process)) {
        return true;
    }
    // The descriptor comes first: what is read afterwards, while it is alive, is this process.
    auto descriptor = PidFd::open(process);
    const auto stat = reader_.stat(process);
    if (!stat || stat->isGone() || (descriptor && descriptor->hasExited())) {
        return false;
    }
    if (descriptors_ >= descriptorLimit_) {
        giveUpDescriptorsOfEnded();
    }
    Held& held = held_[process];
    held = Held{stat->startTime, nullptr, false};
    if (descriptor && descriptors_ < descriptorLimit_) {
        held.descriptor = std::make_shared<const PidFd>(*std::move(descriptor));
        ++descriptors_;
    }
    return true;
}

bool ProcessMemory::isGone(ProcessId process) const {
    const auto found = held_.find(process);
    if (found == held_.end()) {
        const auto stat = reader_.stat(process);
        return !stat || stat->isGone();
    }
    return hasEnded(process, found->second);
}

std::optional<std::uint64_t> ProcessMemory::startTime(ProcessId process) const {
    const auto found = held_.find(process);
    return found == held_.end() ? std::nullopt : std::optional(found->second.startTime);
}

std::shared_ptr<const PidFd> ProcessMemory::descriptor(ProcessId process) const {
    const auto found = held_.find(process);
    return found == held_.end() ? nullptr : found->second.descriptor;
}

bool ProcessMemory::hasEnded(ProcessId process, Held& held) const {
    if (held.isGone) {
        return true;
    }
    if (held.descriptor) {
        held.isGone = held.descriptor->hasExited();
    } else {
        const auto stat = reader_.stat(process);
        held.isGone = !stat || stat->isGone() || stat->startTime != held.startTime;
    }
    if (held.isGone && held.descriptor) {
        held.descriptor.reset();
        --descriptors_;
    }
    return held.isGone;
}

void ProcessMemory::giveUpDescriptorsOfEnded() const {
    for (auto& [process, held] : held_) {
        hasEnded(process, held);
    }
}

} // namespace calmora
