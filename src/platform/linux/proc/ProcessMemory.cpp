// SPDX-License-Identifier: MIT
#include "platform/linux/proc/ProcessMemory.h"

namespace calmora {

ProcessMemory::ProcessMemory(const ProcessReader& reader,
                             std::optional<std::size_t> descriptorLimit)
    : reader_(reader), descriptorLimit_(descriptorLimit.value_or(openFileLimit() / 4)) {}

bool ProcessMemory::hold(ProcessId process) {
    if (held_.contains(process) && !isGone(process)) {
        return true;
    }
    // Open the descriptor first: while it is alive, later reads concern this process.
    auto descriptor = PidFd::open(process);
    const auto started = reader_.startTime(process);
    if (!started || (descriptor && descriptor->hasExited())) {
        return false;
    }
    if (descriptors_ >= descriptorLimit_) {
        giveUpDescriptorsOfEnded();
    }
    Held& held = held_[process];
    held = Held{*started, nullptr, false};
    if (descriptor && descriptors_ < descriptorLimit_) {
        held.descriptor = std::make_shared<const PidFd>(*std::move(descriptor));
        ++descriptors_;
    }
    return true;
}

bool ProcessMemory::isGone(ProcessId process) const {
    const auto found = held_.find(process);
    if (found == held_.end()) {
        return !reader_.startTime(process);
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
        held.isGone = reader_.startTime(process) != held.startTime;
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
