// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

namespace calmora {

/// Owns a registration and ends it on destruction. Move-only. A default-constructed token is empty.
class [[nodiscard]] Subscription {
  public:
    Subscription() = default;

    /// `end` runs once, when the token is destroyed, reset or overwritten.
    explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}

    Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}

    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            reset();
            end_ = std::exchange(other.end_, nullptr);
        }
        return *this;
    }

    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    ~Subscription() { reset(); }

    /// Ends the registration now; does nothing on an empty token.
    void reset() {
        if (auto end = std::exchange(end_, nullptr)) {
            end();
        }
    }

    /// Whether the token still owns a registration.
    explicit operator bool() const { return static_cast<bool>(end_); }

  private:
    std::function<void()> end_;
};

} // namespace calmora
