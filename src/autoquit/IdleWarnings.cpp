// SPDX-License-Identifier: MIT
#include "autoquit/IdleWarnings.h"

#include "platform/LocalizedStrings.h"
#include "platform/RunLoop.h"
#include "support/ShownName.h"

namespace calmora {

void IdleWarnings::warn(const std::string& bundleIdentifier, const std::string& name,
                        std::int64_t minutes) {
    if (warnings_.size() >= most || contains(bundleIdentifier)) {
        return;
    }
    UserNotification notification;
    notification.title = "Calmora";
    notification.body = fillPlaceholders(
        platform_.strings.text("auto_quit_warning %@ %lld", minutes), {shownName(name), minutes});
    notification.identifier = "autoQuitWarning-" + bundleIdentifier;
    warnings_[bundleIdentifier].notice = notifications_.show(
        notification, platform_.strings.text("Keep"), noticeTime,
        [this, bundleIdentifier](NoticeEvent event) { handle(bundleIdentifier, event); });
}

std::vector<std::string> IdleWarnings::applications() const {
    std::vector<std::string> all;
    for (const auto& [bundleIdentifier, warning] : warnings_) {
        all.push_back(bundleIdentifier);
    }
    return all;
}

// The identifier is copied: withdrawing ends the closure that holds it.
void IdleWarnings::handle(const std::string& bundleIdentifier, NoticeEvent event) {
    const std::string identifier = bundleIdentifier;
    switch (event) {
    case NoticeEvent::shown:
    case NoticeEvent::noServer:
        startTime(identifier);
        break;
    case NoticeEvent::failed:
        withdraw(identifier);
        events_.onFailed(identifier);
        break;
    case NoticeEvent::actionChosen:
        withdraw(identifier);
        events_.onKept(identifier);
        break;
    }
}

void IdleWarnings::startTime(const std::string& bundleIdentifier) {
    const auto found = warnings_.find(bundleIdentifier);
    if (found == warnings_.end()) {
        return;
    }
    // Nothing is due while an alert is open, for which a repeating timer waits.
    found->second.time =
        platform_.runLoop.repeat(noticeTime, [this, bundleIdentifier, awayBefore = away_.total()] {
            const std::string identifier = bundleIdentifier;
            if (away_.total() != awayBefore) {
                withdraw(identifier);
                return;
            }
            Warning& warning = warnings_.at(identifier);
            warning.isDue = true;
            warning.time.reset();
            events_.onDue(identifier);
        });
}

} // namespace calmora
