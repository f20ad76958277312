// SPDX-License-Identifier: MIT
#include "platform/linux/windows/OwnerWatch.h"

#include <cerrno>
#include <cstddef>
#include <poll.h>

namespace calmora {

namespace {

/// Leaves descriptors for other uses; owners beyond are checked when their windows are read.
constexpr std::size_t mostOwners = 128;

} // namespace

void OwnerWatch::follow(const std::set<ProcessId>& processes) {
    std::erase_if(owners_, [&](const auto& owner) { return !processes.contains(owner.first); });
    for (const ProcessId process : processes) {
        if (owners_.size() >= mostOwners) {
            break;
        }
        if (!owners_.contains(process)) {
            auto descriptor = PidFd::open(process);
            if (descriptor || errno == ESRCH) {
                owners_.emplace(process, std::move(descriptor));
            }
        }
    }
}

std::vector<ProcessId> OwnerWatch::takeEnded() {
    std::vector<ProcessId> ended;
    if (owners_.empty()) {
        return ended;
    }
    std::vector<pollfd> requests;
    requests.reserve(owners_.size());
    for (const auto& [process, descriptor] : owners_) {
        // poll() skips negative descriptors.
        requests.push_back({descriptor ? descriptor->descriptor() : -1, POLLIN, 0});
    }
    ::poll(requests.data(), requests.size(), 0);
    auto request = requests.begin();
    for (auto owner = owners_.begin(); owner != owners_.end(); ++request) {
        if (!owner->second || request->revents != 0) {
            ended.push_back(owner->first);
            owner = owners_.erase(owner);
        } else {
            ++owner;
        }
    }
    return ended;
}

} // namespace calmora
