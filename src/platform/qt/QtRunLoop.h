#pragma once

#include "platform/RunLoop.h"
#include "platform/qt/AlertSession.h"

namespace calmora {

/// Qt's event loop. A repeating timer that falls due while an alert is open runs once when the
/// alert has been answered. Long timers may come up to 5 % off their time, so that the kernel can
/// wake the machine for several at once.
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
