// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <functional>
#include <string>

namespace calmora {

/// A part of the program that runs within the desktop's shell once the user has allowed it.
class DesktopExtension {
  public:
    enum class State {
        /// Not known yet, or there is nothing to allow.
        none,
        running,
        /// The user has not been asked yet.
        offered,
        /// The user has said no, or has switched it off.
        declined,
        /// Allowed; the shell will find it at the next login.
        awaitsLogin,
        /// The system lets no user have extensions.
        forbidden,
    };

    virtual ~DesktopExtension() = default;

    [[nodiscard]] virtual State state() const = 0;

    /// What it is good for, as a key of LocalizedStrings.
    [[nodiscard]] virtual std::string purpose() const = 0;

    /// Looks again whether it is allowed; onChanged() tells.
    virtual void refresh() = 0;

    /// The user allows it.
    virtual void enable() = 0;

    /// The user does not want to be asked again.
    virtual void decline() = 0;

    /// Calls `handler` after each change of state().
    [[nodiscard]] virtual Subscription onChanged(std::function<void()> handler) = 0;
};

} // namespace calmora
