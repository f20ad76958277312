// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Updater.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <functional>
#include <utility>

namespace calmora {

/// The state of a button that checks for updates. Main thread.
class CheckForUpdatesViewModel {
  public:
    /// `updater` must outlive the model.
    explicit CheckForUpdatesViewModel(Updater& updater) {
        updates_ = updater.observeCanCheckForUpdates([this](bool canCheck) {
            canCheckForUpdates_ = canCheck;
            changed_.emit();
        });
    }

    CheckForUpdatesViewModel(const CheckForUpdatesViewModel&) = delete;
    CheckForUpdatesViewModel& operator=(const CheckForUpdatesViewModel&) = delete;

    /// Whether a check can be started now.
    [[nodiscard]] bool canCheckForUpdates() const { return canCheckForUpdates_; }

    /// Calls `handler` after each update of the state until the token ends.
    [[nodiscard]] Subscription observe(std::function<void()> handler) {
        return changed_.connect(std::move(handler));
    }

  private:
    bool canCheckForUpdates_ = false;
    Signal<> changed_;
    Subscription updates_;
};

} // namespace calmora
