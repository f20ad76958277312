// SPDX-License-Identifier: MIT
#include "model/QuitTogether.h"

#include "model/AppQuitter.h"
#include "platform/Clock.h"
#include "platform/ProcessTable.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace calmora {
namespace {

/// Why an application that was asked to quit has stayed, as far as it tells.
QuitState reasonOf(const RunningApplication& app) {
    if (app.isAsking()) {
        return QuitState::asks;
    }
    return app.isUnresponsive() ? QuitState::doesNotAnswer : QuitState::none;
}

} // namespace

void QuitTogether::begin(const std::vector<AppInfo>& apps, bool force) {
    if (!isUnderWay()) {
        members_.clear();
        isResultForgotten_ = false;
        forced_.clear();
        const std::vector<ProcessId> processes = platform_.processes.allProcesses();
        before_ = {processes.begin(), processes.end()};
    }
    for (const AppInfo& app : apps) {
        if (const Member* known = find(app.pid); known && isUnderWay(*known)) {
            continue;
        }
        std::erase_if(members_, [&](const Member& member) {
            return member.app.pid == app.pid && member.stage == Stage::stayed;
        });
        if (operations_.heldProcess(app.pid) == 0) {
            platform_.processes.hold(app.pid);
        }
        members_.push_back({.app = app,
                            .isForced = force,
                            .process = operations_.heldProcess(app.pid),
                            .memoryMB = memoryOf(app)});
        ++underWay_;
    }
    if (isUnderWay()) {
        asking_ = platform_.runLoop.nextTurn([this] { askSome(); });
        if (!ticking_) {
            ticking_ = platform_.runLoop.repeat(pollInterval, [this] { check(); });
        }
        changed_.emit();
    }
}

void QuitTogether::cancel() {
    if (isUnderWay()) {
        for (Member& member : members_) {
            if (isUnderWay(member)) {
                end(member, isGone(member) ? Stage::gone : Stage::stayed);
            }
        }
        tell();
    }
}

void QuitTogether::forget() {
    if (!isUnderWay() && !members_.empty()) {
        members_.clear();
        changed_.emit();
    }
}

void QuitTogether::forgetEnded() {
    if (!isUnderWay() && !members_.empty()) {
        std::erase_if(members_, [](const Member& member) { return member.stage != Stage::stayed; });
        isResultForgotten_ = true;
        changed_.emit();
    }
}

void QuitTogether::expectReturn(ProcessId pid) {
    for (Member& member : members_) {
        member.isExpectedBack = member.isExpectedBack || member.app.pid == pid;
    }
}

const QuitTogether::Member* QuitTogether::find(ProcessId pid) const {
    // The latest first. Clang 14 cannot use the reversing view of GCC's library.
    const auto found = std::find_if(members_.rbegin(), members_.rend(),
                                    [pid](const Member& member) { return member.app.pid == pid; });
    return found == members_.rend() ? nullptr : &*found;
}

QuitState QuitTogether::state(ProcessId pid) const {
    for (const Member& member : members_) {
        if (member.returned == pid) {
            return QuitState::cameBack;
        }
    }
    const Member* member = find(pid);
    if (!member) {
        return QuitState::none;
    }
    return isUnderWay(*member) ? QuitState::quitting : member->reason;
}

bool QuitTogether::hasReasons() const {
    return std::ranges::any_of(members_, [](const Member& member) {
        return isReason(member.reason) || member.returned != 0;
    });
}

std::optional<QuitResult> QuitTogether::result() const {
    if (members_.empty() || isResultForgotten_) {
        return {};
    }
    QuitResult result;
    for (const Member& member : members_) {
        if (member.stage == Stage::gone && member.returned == 0) {
            ++result.ended;
            result.freedMB += member.memoryMB;
        } else if (member.stage == Stage::stayed || member.returned != 0) {
            ++result.left;
        }
    }
    return result;
}

double QuitTogether::memoryOf(const AppInfo& app) const {
    if (!app.candidates.empty()) {
        return 0; // Its processes may live on.
    }
    if (app.memoryMB) {
        return *app.memoryMB;
    }
    constexpr double bytesPerMB = 1024.0 * 1024.0;
    const auto counters = platform_.processes.counters(app.pid);
    return counters ? static_cast<double>(counters->physFootprint) / bytesPerMB : 0;
}

void QuitTogether::askSome() {
    const auto turnEnds = platform_.clock.ticks() + askingTime;
    bool isAnyLeft = false;
    for (Member& member : members_) {
        if (member.stage != Stage::waiting) {
            continue;
        }
        if (platform_.clock.ticks() >= turnEnds) {
            isAnyLeft = true;
            break;
        }
        ask(member);
    }
    asking_ = isAnyLeft ? platform_.runLoop.nextTurn([this] { askSome(); }) : Subscription();
    tell();
}

void QuitTogether::ask(Member& member) {
    const ProcessId pid = member.app.pid;
    auto application = operations_.lookupApp(pid);
    const bool isMeant = operations_.heldProcess(pid) == member.process;
    if (!application || !isMeant) {
        const bool isThere = isMeant && operations_.processExists(pid);
        end(member, isThere ? Stage::stayed : Stage::vanished);
        return;
    }
    const auto now = platform_.clock.ticks();
    if (member.isForced) {
        member.forced = ForcedQuit::of(operations_, std::move(application));
        if (!member.forced) {
            end(member, Stage::stayed);
            return;
        }
        member.forced->ask(forced_);
        member.stage = Stage::terminated;
        member.deadline = now + AppQuitter::forceQuitTimeout;
        endIfGone(member);
        return;
    }
    member.hasSeveralCandidates = application->hasSeveralCandidates();
    member.processes = HeldProcesses(operations_, {pid});
    member.application = std::move(application);
    member.stage = Stage::asked;
    member.deadline = now + AppQuitter::gracefulQuitTimeout;
    goOn(member, member.application->beginTerminate());
    if (isUnderWay(member) && !endIfGone(member)) {
        member.application->probe();
    }
}

/// Goes on after a step of a polite request.
void QuitTogether::goOn(Member& member, const QuitRequest& request) {
    member.continuesAt.reset();
    if (request.pause) {
        member.continuesAt = platform_.clock.ticks() + *request.pause;
    } else if (!request.wasSent) {
        end(member, Stage::stayed, isRefused(member.app.pid));
    }
}

void QuitTogether::check() {
    if (!isUnderWay()) {
        return;
    }
    for (Member& member : members_) {
        if (isUnderWay(member) && member.stage != Stage::waiting) {
            advance(member);
        }
    }
    tell();
}

void QuitTogether::advance(Member& member) {
    if (endIfGone(member)) {
        return;
    }
    const auto now = platform_.clock.ticks();
    if (member.continuesAt && now >= *member.continuesAt) {
        goOn(member, member.application->continueTerminate());
    }
    if (!isUnderWay(member) || now < member.deadline) {
        return;
    }
    if (member.stage == Stage::terminated) {
        kill(member);
    } else {
        end(member, Stage::stayed);
    }
}

void QuitTogether::kill(Member& member) {
    switch (member.forced->kill()) {
    case ForcedQuit::Kill::needless:
        end(member, Stage::gone);
        break;
    case ForcedQuit::Kill::refused:
        end(member, Stage::stayed, member.forced->anyExists());
        break;
    case ForcedQuit::Kill::sent:
        member.stage = Stage::killed;
        member.deadline = platform_.clock.ticks() + AppQuitter::hardKillTimeout;
        endIfGone(member);
        break;
    }
}

bool QuitTogether::endIfGone(Member& member) {
    const bool isOver = isGone(member);
    if (isOver) {
        end(member, Stage::gone);
    }
    return isOver;
}

bool QuitTogether::isGone(const Member& member) const {
    if (member.forced) {
        return !member.forced->anyExists();
    }
    if (!member.application) {
        return false; // Not asked yet.
    }
    return member.hasSeveralCandidates ? member.application->isTerminated()
                                       : !member.processes.anyExists(operations_);
}

bool QuitTogether::isRefused(ProcessId pid) const {
    errno = 0;
    return operations_.sendSignal(pid, 0) != 0 && errno == EPERM;
}

void QuitTogether::end(Member& member, Stage stage, bool isRefused) {
    member.stage = stage;
    member.deadline = platform_.clock.ticks();
    --underWay_;
    isChanged_ = true;
    if (stage == Stage::gone) {
        untold_.push_back(member.app);
    } else if (stage == Stage::stayed) {
        member.reason = isRefused            ? QuitState::notAllowed
                        : member.application ? reasonOf(*member.application)
                                             : QuitState::none;
    }
    member.application.reset();
    member.forced.reset();
    member.continuesAt.reset();
}

void QuitTogether::updateReason(Member& member) {
    const bool isMeant = operations_.heldProcess(member.app.pid) == member.process;
    const auto app = isMeant ? platform_.workspace.runningApplication(member.app.pid)
                             : AppQuitterOperations::Application();
    if (!app) {
        member.reason = QuitState::none;
    } else if (member.reason != QuitState::notAllowed) {
        member.reason = reasonOf(*app);
    }
    if (member.reason == QuitState::doesNotAnswer) {
        app->probe();
    }
}

void QuitTogether::updateReturn(Member& member, const ApplicationSnapshot& running) const {
    const bool mayReturn =
        !member.isExpectedBack && platform_.clock.ticks() - member.deadline <= returnTime;
    const auto isReturned = [&](const WorkspaceApplication& app) {
        const ProcessId process = app.processIdentifier;
        return process == member.returned ||
               (member.returned == 0 && mayReturn && app.bundleIdentifier &&
                app.bundleIdentifier == member.app.bundleIdentifier && !before_.contains(process));
    };
    const auto found = std::ranges::find_if(running, isReturned);
    member.returned = found == running.end() ? 0 : found->processIdentifier;
}

void QuitTogether::lookAgain(const ApplicationSnapshot& running) {
    bool isChanged = false;
    for (Member& member : members_) {
        const QuitState reason = member.reason;
        const ProcessId returned = member.returned;
        if (member.stage == Stage::stayed) {
            updateReason(member);
        } else if (member.stage == Stage::gone) {
            updateReturn(member, running);
        }
        isChanged = isChanged || member.reason != reason || member.returned != returned;
    }
    if (isChanged) {
        changed_.emit();
    }
}

void QuitTogether::tell() {
    if (!isUnderWay()) {
        asking_.reset();
        ticking_.reset();
    }
    const std::vector<AppInfo> gone = std::exchange(untold_, {});
    if (!gone.empty()) {
        gone_.emit(gone);
    }
    if (std::exchange(isChanged_, false)) {
        changed_.emit();
    }
    if (!isUnderWay()) {
        std::vector<AppInfo> ended;
        for (const Member& member : members_) {
            if (member.stage == Stage::gone) {
                ended.push_back(member.app);
            }
        }
        finished_.emit(ended);
    }
}

} // namespace calmora
