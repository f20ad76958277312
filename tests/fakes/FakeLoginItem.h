// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"

#include <vector>

namespace calmora {

/// A login item in memory.
class FakeLoginItem final : public LoginItem {
  public:
    bool isEnabled() const override { return enabled; }

    bool setEnabled(bool isEnabled) override {
        requests.push_back(isEnabled);
        if (!isRefusing) {
            enabled = isEnabled;
        }
        return !isRefusing;
    }

    bool enabled = false;
    /// Every change fails.
    bool isRefusing = false;
    /// Every change that was asked for, in order.
    std::vector<bool> requests;
};

} // namespace calmora
