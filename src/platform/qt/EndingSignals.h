#pragma once

#include "support/FileDescriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace calmora {

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
