#pragma once

#include "platform/Updater.h"
#include "support/Signal.h"

#include <utility>

namespace calmora {

/// An updater that finds nothing.
class FakeUpdater final : public Updater {
  public:
    [[nodiscard]] std::optional<std::string> unavailableReason() const override {
        return std::nullopt;
    }

    [[nodiscard]] bool canCheckForUpdates() const override { return canCheck; }

    [[nodiscard]] Subscription
    observeCanCheckForUpdates(std::function<void(bool)> handler) override {
        handler(canCheck);
        return changed.connect(std::move(handler));
    }

    /// Simulates that a check began or ended.
    void setCanCheck(bool value) {
        canCheck = value;
        changed.emit(value);
    }

    void checkForUpdates() override {}

    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return isAutomatic; }

    void setAutomaticallyChecksForUpdates(bool value) override { isAutomatic = value; }

    bool canCheck = true;
    bool isAutomatic = false;
    Signal<bool> changed;
};

} // namespace calmora
