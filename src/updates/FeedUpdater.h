// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Updater.h"
#include "support/Signal.h"
#include "support/Subscription.h"
#include "updates/Release.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace calmora {

class Clock;
class LocalizedStrings;
class RunLoop;
class UpdatePresenter;
class UserDefaults;
class UserNotifications;
struct UpdateReport;

/// What an updater works with. Everything must outlive it.
struct UpdaterSurroundings {
    ReleaseSource& source;
    UpdatePresenter& presenter;
    UserNotifications& notifications;
    UserDefaults& defaults;
    RunLoop& runLoop;
    Clock& clock;
    const LocalizedStrings& strings;
    /// The running version.
    std::string version;
};

/// Looks for new versions in a list of releases: when asked and, if the user has switched that on,
/// once a day. Downloads and installs nothing. Main thread.
///
/// An automatic check is silent unless it finds a version that was not announced yet; a failed one
/// is repeated after an hour. There is one timer, and only while automatic checks are on.
class FeedUpdater final : public Updater {
  public:
    /// Keys of the updater's state among the preferences.
    static constexpr const char* automaticKey = "updaterChecksAutomatically";
    /// Seconds since 1970.
    static constexpr const char* lastCheckKey = "updaterLastCheck";
    static constexpr const char* announcedKey = "updaterAnnouncedVersion";

    static constexpr std::chrono::hours interval{24};
    /// No automatic check is made for this long after launch and after being switched on.
    static constexpr std::chrono::seconds quietAtFirst{60};
    /// Timers stop while the machine sleeps, so the time of day is checked every hour.
    static constexpr std::chrono::hours longestWait{1};
    static constexpr std::chrono::seconds timeout{30};
    /// A faster check shows no progress.
    static constexpr std::chrono::milliseconds progressDelay{400};

    /// Schedules the next automatic check.
    explicit FeedUpdater(UpdaterSurroundings surroundings);

    [[nodiscard]] std::optional<std::string> unavailableReason() const override { return {}; }

    /// False while a check by the user runs.
    [[nodiscard]] bool canCheckForUpdates() const override { return running_ != Asker::user; }

    [[nodiscard]] Subscription
    observeCanCheckForUpdates(std::function<void(bool)> handler) override;

    /// The presenter shows the answer. Replaces a running automatic check.
    void checkForUpdates() override;

    [[nodiscard]] bool automaticallyChecksForUpdates() const override;
    void setAutomaticallyChecksForUpdates(bool isAutomatic) override;

  private:
    enum class Asker { nobody, user, schedule };

    void begin(Asker asker);
    /// Ends the running check, answered or not.
    void end();
    void finish(const ReleaseList& answer);
    void tellUser(const Release* found, std::optional<UpdateError> error);
    void announce(const Release& release);
    [[nodiscard]] std::chrono::seconds untilDue() const;
    /// Schedules the next automatic check, `earliest` from now or later; none while they are off.
    void schedule(std::chrono::milliseconds earliest);
    [[nodiscard]] std::string text(const char* key, const std::string& argument = {}) const;

    UpdaterSurroundings around_;
    Asker running_ = Asker::nobody;
    bool showsProgress_ = false;
    Signal<bool> changed_;
    Subscription fetching_;
    Subscription deadline_;
    Subscription progress_;
    Subscription nextCheck_;
    Subscription closed_;
};

} // namespace calmora
