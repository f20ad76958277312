// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunLoop.h"
#include "platform/qt/AlertSession.h"
#include "support/FileDescriptor.h"
#include "support/Subscription.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <utility>

namespace calmora {

/// Qt's event loop. A repeating timer that is due while an alert is open runs once after the
/// answer. Long timers may be 5 % late or early, so that the kernel can wake the machine for
/// several at once.
class QtRunLoop final : public RunLoop {
  public:
    /// `alerts` must outlive every token.
    explicit QtRunLoop(AlertSession& alerts) : alerts_(alerts) {}

    [[nodiscard]] Subscription repeat(std::chrono::milliseconds interval,
                                      std::function<void()> action) override;

    [[nodiscard]] Subscription after(std::chrono::milliseconds delay,
                                     std::function<void()> action) override;

    [[nodiscard]] Subscription nextTurn(std::function<void()> action) override {
        return after(std::chrono::milliseconds{0}, std::move(action));
    }

  private:
    AlertSession& alerts_;
};

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

/// Turns SIGTERM, SIGINT and SIGHUP into a call from the main loop, so that the program ends as
/// with its Quit command. Source: signalfd(2).
class EndingSignals {
  public:
    /// Blocks the signals from now on. Must be called before the program has other threads.
    EndingSignals();

    /// Calls `action` for each signal, also for those that came before.
    void onSignal(std::function<void()> action);

  private:
    FileDescriptor descriptor_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace calmora
