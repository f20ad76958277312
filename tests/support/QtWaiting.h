// SPDX-License-Identifier: MIT
#pragma once

#include "support/Waiting.h"

namespace calmora {

/// Runs Qt's loop until the condition holds; false after `timeout`, scaled.
inline bool loopUntil(const std::function<bool()>& condition,
                      std::chrono::milliseconds timeout = defaultTimeout) {
    return QTest::qWaitFor(condition, static_cast<int>(scaled(timeout).count()));
}

/// Runs Qt's loop for a while, to see that nothing happens.
inline void loopFor(std::chrono::milliseconds time) {
    QTest::qWait(static_cast<int>(scaled(time).count()));
}

} // namespace calmora
