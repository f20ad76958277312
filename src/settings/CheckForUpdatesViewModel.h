#pragma once

#include "support/Signal.h"
#include "support/Subscription.h"

#include <functional>

namespace calmora {

class Updater;

/// Follows whether a check for updates can be started, for a button. Main thread.
class CheckForUpdatesViewModel {
  public:
    /// `updater` must outlive the model.
    explicit CheckForUpdatesViewModel(Updater& updater);

    CheckForUpdatesViewModel(const CheckForUpdatesViewModel&) = delete;
    CheckForUpdatesViewModel& operator=(const CheckForUpdatesViewModel&) = delete;

    [[nodiscard]] bool canCheckForUpdates() const { return canCheckForUpdates_; }

    /// Calls `handler` after each value that the updater gives until the token ends.
    [[nodiscard]] Subscription observe(std::function<void()> handler);

  private:
    bool canCheckForUpdates_ = false;
    Signal<> changed_;
    Subscription updates_;
};

} // namespace calmora
