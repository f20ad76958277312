#pragma once

#include <chrono>
#include <optional>

namespace calmora {

/// Keeps one click on the status icon from closing the popover by its press, which counts as one
/// outside where the icon's place is unknown, and opening it again by its release.
class ReopenGuard {
  public:
    using Time = std::chrono::steady_clock::time_point;

    static constexpr std::chrono::milliseconds span{250};

    /// The popover closed because the user left it.
    void noteLeft(Time now) { left_ = now; }

    /// Whether a request to open now belongs to the same click.
    [[nodiscard]] bool refuses(Time now) const { return left_ && now - *left_ < span; }

  private:
    std::optional<Time> left_;
};

} // namespace calmora
