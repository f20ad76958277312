// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AwayTime.h"
#include "platform/UseSources.h"

#include <memory>
#include <utility>

namespace calmora {

/// What is in use, as the test says. Answers with answer().
class FakeUseSources final : public UseSources {
  public:
    Subscription read(std::function<void(const UseReport&)> handler) override {
        ++reads;
        auto token = std::make_shared<int>();
        asked_ = token;
        handler_ = std::move(handler);
        return Subscription([token = std::move(token)]() mutable { token.reset(); });
    }

    /// Answers whoever has asked last.
    void answer() {
        const auto handler = std::exchange(handler_, nullptr);
        if (handler && !asked_.expired()) {
            handler(report);
        }
    }

    UseReport report;
    /// How often it was asked.
    int reads = 0;

  private:
    std::function<void(const UseReport&)> handler_;
    std::weak_ptr<int> asked_;
};

/// Time away that the test adds up.
class FakeAwayTime final : public AwayTime {
  public:
    void setFollowing(bool follows) override { isFollowing = follows; }

    std::chrono::nanoseconds total() const override { return away; }

    std::chrono::nanoseconds away{0};
    bool isFollowing = false;
};

} // namespace calmora
