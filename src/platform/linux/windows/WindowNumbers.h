// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/windows/WindowSystem.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace calmora {

/// Our own numbers of windows that a compositor calls otherwise (`Name`), and when each was first
/// seen. No number is used twice.
template <typename Name>
class WindowNumbers {
  public:
    /// Numbers the new ones of `windows`, which have such a name as `id`, and forgets all others.
    template <typename Window>
    void keep(const std::vector<Window>& windows) {
        const auto before = std::exchange(known_, {});
        for (const Window& window : windows) {
            const auto old = before.find(window.id);
            known_[window.id] =
                old == before.end() ? Known{++lastNumber_, ticksNow()} : old->second;
        }
    }

    /// 0 for an unknown window.
    [[nodiscard]] WindowId number(const Name& name) const {
        const auto found = known_.find(name);
        return found == known_.end() ? 0 : found->second.number;
    }

    /// As OwnerProcess::startTime counts; 0 for an unknown window.
    [[nodiscard]] std::uint64_t firstSeen(const Name& name) const {
        const auto found = known_.find(name);
        return found == known_.end() ? 0 : found->second.firstSeen;
    }

    /// Absent for an unknown window.
    [[nodiscard]] std::optional<Name> name(WindowId number) const {
        const auto found = std::ranges::find(known_, number,
                                             [](const auto& entry) { return entry.second.number; });
        return found == known_.end() ? std::nullopt : std::optional(found->first);
    }

  private:
    struct Known {
        WindowId number = 0;
        std::uint64_t firstSeen = 0;
    };

    std::map<Name, Known> known_;
    WindowId lastNumber_ = 0;
};

} // namespace calmora
