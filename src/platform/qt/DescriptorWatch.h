#pragma once

#include "platform/qt/AlertSession.h"
#include "support/Subscription.h"

#include <QSocketNotifier>

#include <functional>
#include <utility>

namespace calmora {

/// Calls a function from the main loop whenever a descriptor is readable. While an alert is open
/// what arrives stays in the descriptor.
class DescriptorWatch {
  public:
    /// `descriptor` and `alerts` must outlive the watch; `dispatch` reads until nothing is left.
    DescriptorWatch(int descriptor, AlertSession& alerts, std::function<void()> dispatch)
        : notifier_(descriptor, QSocketNotifier::Read),
          alertChanges_(alerts.onChanged([this](bool isOpen) { notifier_.setEnabled(!isOpen); })) {
        notifier_.setEnabled(!alerts.isOpen());
        QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, std::move(dispatch));
    }

  private:
    QSocketNotifier notifier_;
    Subscription alertChanges_;
};

} // namespace calmora
