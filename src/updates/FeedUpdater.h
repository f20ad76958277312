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

/// What an updater works with. Everything outlives it.
struct UpdaterSurroundings {
    ReleaseSource& source;
    UpdatePresenter& presenter;
    UserNotifications& notifications;
    UserDefaults& defaults;
    RunLoop& runLoop;
    Clock& clock;
    const LocalizedStrings& strings;
    /// The version that runs.
    std::string version;
};

/// Looks for new versions in a list of releases, when asked and, once the user has switched that
/// on, once a day. It downloads and installs nothing. Main thread.
///
/// A check that nobody asked for is silent unless it finds a version that was not told of yet;
/// one that fails is tried again after an hour. There is one timer, and only while they are on.
class FeedUpdater final : public Updater {
  public:
    /// Where the updater keeps what it remembers among the preferences.
    static constexpr const char* automaticKey = "updaterChecksAutomatically";
    /// Seconds since 1970.
    static constexpr const char* lastCheckKey = "updaterLastCheck";
    static constexpr const char* announcedKey = "updaterAnnouncedVersion";

    static constexpr std::chrono::hours interval{24};
    /// How long after launch, and after being switched on, no check is made.
    static constexpr std::chrono::seconds quietAtFirst{60};
    /// A timer stands still while the machine sleeps, so that the day is looked at every hour.
    static constexpr std::chrono::hours longestWait{1};
    static constexpr std::chrono::seconds timeout{30};
    /// A check that is answered sooner shows no progress.
    static constexpr std::chrono::milliseconds progressDelay{400};

    /// Starts to wait for the next automatic check.
    explicit FeedUpdater(UpdaterSurroundings surroundings);

    [[nodiscard]] std::optional<std::string> unavailableReason() const override { return {}; }

    /// False while a check runs that the user asked for.
    [[nodiscard]] bool canCheckForUpdates() const override { return running_ != Asker::user; }

    [[nodiscard]] Subscription
    observeCanCheckForUpdates(std::function<void(bool)> handler) override;

    /// The answer is shown by the presenter. Takes the place of an automatic check that runs.
    void checkForUpdates() override;

    [[nodiscard]] bool automaticallyChecksForUpdates() const override;
    void setAutomaticallyChecksForUpdates(bool isAutomatic) override;

  private:
    enum class Asker { nobody, user, schedule };

    void begin(Asker asker);
    /// Ends what runs, with or without an answer.
    void end();
    void finish(const ReleaseList& answer);
    void tellUser(const Release* found, std::optional<UpdateError> error);
    void announce(const Release& release);
    [[nodiscard]] std::chrono::seconds untilDue() const;
    /// Waits for the next check, at least for `earliest`; for none while they are off.
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
