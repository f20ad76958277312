// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AwayTime.h"
#include "platform/RunLoop.h"
#include "platform/UseSources.h"

#include <utility>

namespace calmora {

/// Where nobody tells what is in use: no report is complete, which spares everything.
class UntoldUse final : public UseSources, public AwayTime {
  public:
    /// The loop must outlive this object.
    explicit UntoldUse(RunLoop& runLoop) : runLoop_(runLoop) {}

    [[nodiscard]] Subscription read(std::function<void(const UseReport&)> handler) override {
        return runLoop_.nextTurn([handler = std::move(handler)] {
            handler({.uses = {}, .isComplete = false, .sinceInput = {}});
        });
    }

    void setFollowing(bool /*follows*/) override {}

    [[nodiscard]] std::chrono::nanoseconds total() const override { return {}; }

  private:
    RunLoop& runLoop_;
};

} // namespace calmora
