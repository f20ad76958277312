#pragma once

#include "platform/Updater.h"

namespace calmora {

/// An updater that finds nothing.
class FakeUpdater final : public Updater {
  public:
    [[nodiscard]] std::optional<std::string> unavailableReason() const override {
        return std::nullopt;
    }

    [[nodiscard]] bool canCheckForUpdates() const override { return canCheck; }

    void checkForUpdates() override { checks += canCheck ? 1 : 0; }

    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return isAutomatic; }

    void setAutomaticallyChecksForUpdates(bool value) override { isAutomatic = value; }

    bool canCheck = true;
    bool isAutomatic = false;
    /// The checks that were started.
    int checks = 0;
};

} // namespace calmora
