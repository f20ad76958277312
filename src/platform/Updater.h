// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <functional>
#include <optional>
#include <string>

namespace calmora {

/// Looks for new versions of the program.
class Updater {
  public:
    virtual ~Updater() = default;

    /// Why checking is impossible, as a key of LocalizedStrings; absent if it is possible.
    [[nodiscard]] virtual std::optional<std::string> unavailableReason() const = 0;

    /// Whether a check can be started now.
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;

    /// Calls `handler` with canCheckForUpdates() at once and after each change, until the token
    /// ends.
    [[nodiscard]] virtual Subscription
    observeCanCheckForUpdates(std::function<void(bool)> handler) = 0;

    /// Starts a check for the user; does nothing while none can be started.
    virtual void checkForUpdates() = 0;

    /// Whether the updater checks automatically. Persistent.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;

    virtual void setAutomaticallyChecksForUpdates(bool isAutomatic) = 0;
};

/// The updater of a build whose updates come with the system's packages.
class UnavailableUpdater final : public Updater {
  public:
    [[nodiscard]] std::optional<std::string> unavailableReason() const override {
        return "update_packaged";
    }

    [[nodiscard]] bool canCheckForUpdates() const override { return false; }

    [[nodiscard]] Subscription
    observeCanCheckForUpdates(std::function<void(bool)> handler) override {
        handler(false);
        return {};
    }

    void checkForUpdates() override {}

    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return false; }

    void setAutomaticallyChecksForUpdates(bool /*isAutomatic*/) override {}
};

} // namespace calmora
