// SPDX-License-Identifier: MIT
#include "updates/FeedUpdater.h"

#include "platform/Clock.h"
#include "platform/LocalizedStrings.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"
#include "platform/UserNotifications.h"
#include "updates/UpdatePresenter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <variant>

namespace calmora {
namespace {

using std::chrono::milliseconds;

/// The keys of the errors' texts, in the order of UpdateError.
constexpr std::array errorTexts{
    "update_error_address",  "update_error_loader",    "update_error_unreachable",
    "update_error_insecure", "update_error_refused",   "update_error_redirect",
    "update_error_timeout",  "update_error_too_large", "update_error_unreadable",
    "update_error_version",
};
static_assert(errorTexts.size() == static_cast<std::size_t>(UpdateError::version) + 1);

std::chrono::seconds sinceEpoch(const Clock& clock) {
    return std::chrono::duration_cast<std::chrono::seconds>(clock.now().time_since_epoch());
}

} // namespace

FeedUpdater::FeedUpdater(UpdaterSurroundings surroundings) : around_(std::move(surroundings)) {
    closed_ = around_.presenter.onClosed([this] {
        if (std::exchange(showsProgress_, false)) {
            end();
        }
    });
    schedule(quietAtFirst);
}

Subscription FeedUpdater::observeCanCheckForUpdates(std::function<void(bool)> handler) {
    handler(canCheckForUpdates());
    return changed_.connect(std::move(handler));
}

void FeedUpdater::checkForUpdates() {
    if (canCheckForUpdates()) {
        begin(Asker::user);
    }
}

bool FeedUpdater::automaticallyChecksForUpdates() const {
    return around_.defaults.boolean(automaticKey);
}

void FeedUpdater::setAutomaticallyChecksForUpdates(bool isAutomatic) {
    around_.defaults.set(automaticKey, isAutomatic);
    if (!isAutomatic && running_ == Asker::schedule) {
        end();
    }
    schedule(quietAtFirst);
}

void FeedUpdater::begin(Asker asker) {
    running_ = asker;
    fetching_.reset();
    fetching_ = around_.source.fetch([this](const ReleaseList& list) { finish(list); });
    deadline_ = around_.runLoop.after(timeout, [this] { finish(UpdateError::timeout); });
    if (asker == Asker::user) {
        progress_ = around_.runLoop.after(progressDelay, [this] {
            showsProgress_ = true;
            around_.presenter.show({.title = text("update_checking"),
                                    .text = {},
                                    .notes = {},
                                    .page = {},
                                    .isRunning = true});
        });
        changed_.emit(false);
    }
}

void FeedUpdater::end() {
    fetching_.reset();
    deadline_.reset();
    progress_.reset();
    showsProgress_ = false;
    if (std::exchange(running_, Asker::nobody) == Asker::user) {
        changed_.emit(true);
    }
}

void FeedUpdater::finish(const ReleaseList& answer) {
    const ReleaseList list = answer; // Ending the check may destroy the answer.
    const Asker asker = running_;
    end();

    const auto* releases = std::get_if<std::vector<Release>>(&list);
    const Release* found = releases ? newestRelease(*releases) : nullptr;
    if (found && compareVersions(found->version, around_.version) <= 0) {
        found = nullptr;
    }
    if (releases) {
        around_.defaults.set(lastCheckKey, std::int64_t{sinceEpoch(around_.clock).count()});
    }
    const bool isNews = found && around_.defaults.string(announcedKey) != found->version;
    if (isNews) {
        around_.defaults.set(announcedKey, found->version);
    }
    if (asker == Asker::user) {
        tellUser(found, releases ? std::nullopt : std::optional(std::get<UpdateError>(list)));
    } else if (isNews) {
        announce(*found);
    }
    schedule(longestWait);
}

void FeedUpdater::tellUser(const Release* found, std::optional<UpdateError> error) {
    UpdateReport report;
    if (error) {
        report.title = text("update_failed_title");
        report.text = text(errorTexts.at(static_cast<std::size_t>(*error)));
    } else if (found) {
        report.title = text("update_available_title %@", found->version);
        report.text = text("update_available_text %@", around_.version);
        report.notes = found->notes;
        report.page = found->page;
    } else {
        report.title = text("update_current_title");
        report.text = text("update_current_text %@", around_.version);
    }
    around_.presenter.show(report);
}

void FeedUpdater::announce(const Release& release) {
    around_.notifications.add({.identifier = "update-" + release.version,
                               .title = text("update_available_title %@", release.version),
                               .body = text("update_notification_text")});
}

std::chrono::seconds FeedUpdater::untilDue() const {
    using std::chrono::seconds;
    const seconds last{around_.defaults.integer(lastCheckKey)};
    const seconds now = sinceEpoch(around_.clock);
    // A last check in the future: the clock was wrong then, or is now.
    return last < seconds{0} || last > now ? seconds{0}
                                           : std::max(last + interval - now, seconds{0});
}

void FeedUpdater::schedule(milliseconds earliest) {
    nextCheck_.reset();
    if (!automaticallyChecksForUpdates()) {
        return;
    }
    const milliseconds wait = std::min<milliseconds>(untilDue(), longestWait);
    nextCheck_ = around_.runLoop.after(std::max(wait, earliest), [this] {
        if (running_ == Asker::nobody && untilDue() == std::chrono::seconds{0}) {
            begin(Asker::schedule);
            schedule(longestWait);
        } else {
            schedule(quietAtFirst);
        }
    });
}

std::string FeedUpdater::text(const char* key, const std::string& argument) const {
    return fillPlaceholders(around_.strings.text(key), {argument});
}

} // namespace calmora
