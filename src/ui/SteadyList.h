// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "platform/ProcessId.h"

#include <chrono>
#include <optional>
#include <span>
#include <vector>

/// Rules that keep a list that changes by itself from moving under the user's hand.
namespace calmora {

/// `sorted` in the order in which the list shows it already: the entries of `shown` first, in that
/// order, then all others as they are sorted.
[[nodiscard]] std::vector<AppInfo> inShownOrder(std::vector<AppInfo> sorted,
                                                std::span<const ProcessId> shown);

/// Refuses presses that were aimed at a row which is no longer there: another one may have slipped
/// under the pointer before the user could see it.
class PressGuard {
  public:
    /// How long a press counts as aimed at what was there before.
    static constexpr std::chrono::milliseconds pause{250};

    /// What is under the pointer has changed by itself. Times are those of Clock::ticks().
    void rowsMoved(std::chrono::nanoseconds now) { movedAt_ = now; }

    /// Whether a press may act.
    [[nodiscard]] bool accepts(std::chrono::nanoseconds now) const {
        return !movedAt_ || now - *movedAt_ >= pause;
    }

  private:
    std::optional<std::chrono::nanoseconds> movedAt_;
};

} // namespace calmora
