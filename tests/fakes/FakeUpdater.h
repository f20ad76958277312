// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Updater.h"

namespace calmora {

/// An updater that finds nothing.
class FakeUpdater final : public Updater {
  public:
    std::optional<std::string> unavailableReason() const override { return {}; }

    bool canCheckForUpdates() const override { return true; }

    Subscription observeCanCheckForUpdates(std::function<void(bool)> handler) override {
        handler(true);
        return {};
    }

    void checkForUpdates() override {}

    bool automaticallyChecksForUpdates() const override { return false; }

    void setAutomaticallyChecksForUpdates(bool) override {}
};

} // namespace calmora
