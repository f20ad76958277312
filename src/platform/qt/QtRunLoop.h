#pragma once

#include "platform/RunLoop.h"
#include "platform/qt/AlertSession.h"

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

    [[nodiscard]] Subscription nextTurn(std::function<void()> action) override;

  private:
    AlertSession& alerts_;
};

} // namespace calmora
