#pragma once

#include "platform/qt/AlertSession.h"
#include "support/Subscription.h"

#include <QSocketNotifier>

#include <functional>

namespace calmora {

/// Brings a descriptor that becomes readable into the main loop. While an alert is open nothing is
/// told: what arrives stays in the descriptor and is told when the alert has been answered.
class DescriptorWatch {
  public:
    /// `descriptor` and `alerts` must outlive the watch; `dispatch` reads until nothing is left.
    DescriptorWatch(int descriptor, AlertSession& alerts, std::function<void()> dispatch);

  private:
    QSocketNotifier notifier_;
    Subscription alertChanges_;
};

} // namespace calmora
