// SPDX-License-Identifier: MIT
#pragma once

namespace calmora {

/// Starts the program when the user logs in.
class LoginItem {
  public:
    virtual ~LoginItem() = default;

    /// Whether the program is started at login. Read afresh: the user may have changed it
    /// elsewhere.
    [[nodiscard]] virtual bool isEnabled() const = 0;

    /// Switches the start at login on or off. False if that failed; then nothing has changed.
    virtual bool setEnabled(bool isEnabled) = 0;
};

} // namespace calmora
