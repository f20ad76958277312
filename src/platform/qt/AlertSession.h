// SPDX-License-Identifier: MIT
#pragma once

#include "support/Signal.h"
#include "support/Subscription.h"

#include <functional>

namespace calmora {

/// Whether an alert is open, for whatever must wait for the answer.
class AlertSession {
  public:
    /// Whether an alert is open.
    [[nodiscard]] bool isOpen() const { return depth_ > 0; }

    /// Opens a session that lasts as long as the token; sessions nest. This object must outlive the
    /// token.
    [[nodiscard]] Subscription begin() {
        if (depth_++ == 0) {
            changed_.emit(true);
        }
        return Subscription([this] {
            if (--depth_ == 0) {
                changed_.emit(false);
            }
        });
    }

    /// Called with true when the first alert opens and with false when the last one has closed.
    [[nodiscard]] Subscription onChanged(std::function<void(bool)> handler) {
        return changed_.connect(std::move(handler));
    }

  private:
    int depth_ = 0;
    Signal<bool> changed_;
};

} // namespace calmora
