#pragma once

namespace calmora {

/// Looks for new versions of the program.
class Updater {
  public:
    virtual ~Updater() = default;

    /// Whether a check can be started now.
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;

    /// Starts a check that the user asked for; does nothing while none can be started.
    virtual void checkForUpdates() = 0;
};

/// The answer where no way of updating exists: no check can ever be started.
class UnavailableUpdater final : public Updater {
  public:
    [[nodiscard]] bool canCheckForUpdates() const override { return false; }

    void checkForUpdates() override {}
};

} // namespace calmora
