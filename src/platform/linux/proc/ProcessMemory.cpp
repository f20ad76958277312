// SPDX-License-Identifier: MIT
#include "platform/linux/proc/ProcessMemory.h"

#include <algorithm>
#include <vector>

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
        findEnded();
    }
    if (held_.size() >= fullAt_) {
        forgetFirstEnded();
    }
    Held& held = held_[process];
    held = Held{*started, nullptr, 0};
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
    if (held.end != 0) {
        return true;
    }
    const bool isGone = held.descriptor ? held.descriptor->hasExited()
                                        : reader_.startTime(process) != held.startTime;
    if (!isGone) {
        return false;
    }
    held.end = ++ends_;
    if (held.descriptor) {
        held.descriptor.reset();
        --descriptors_;
    }
    return true;
}

/// Gives up the descriptors of processes that have ended.
void ProcessMemory::findEnded() const {
    for (auto& [process, held] : held_) {
        hasEnded(process, held);
    }
}

/// A row that still shows one of them is unlikely: its end was found before thousands of others.
void ProcessMemory::forgetFirstEnded() {
    findEnded();
    std::vector<std::uint64_t> ends;
    for (const auto& [process, held] : held_) {
        if (held.end != 0) {
            ends.push_back(held.end);
        }
    }
    if (ends.size() > mostEnded) {
        const auto kept = ends.end() - static_cast<std::ptrdiff_t>(mostEnded);
        std::ranges::nth_element(ends, kept);
        std::erase_if(held_, [first = *kept](const auto& entry) {
            return entry.second.end != 0 && entry.second.end < first;
        });
    }
    fullAt_ = held_.size() + mostEnded;
}

} // namespace calmora
