// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "model/QuitOperations.h"
#include "platform/Platform.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace calmora {

/// What a quit of several applications came to.
struct QuitResult {
    /// Those that are gone.
    std::size_t ended = 0;
    /// Those that have stayed, or that came back.
    std::size_t left = 0;
    /// What those that are gone used when they were asked, in mebibytes.
    double freedMB = 0;
};

/// Quits several applications side by side while the run loop runs, each as AppQuitter would: the
/// same requests, victims, checks and waits, each counted from the application's own request. What
/// is begun while others are under way joins them: one operation ends with the last of them.
/// Afterwards it knows why each one stayed, until the next operation. The caller checks the
/// never-quit list. Main thread.
class QuitTogether {
  public:
    /// Pause between two checks; also what asking may take from one turn of the loop, roughly.
    static constexpr std::chrono::milliseconds pollInterval{50};
    static constexpr std::chrono::milliseconds askingTime{10};
    /// What starts so soon after the end of an application with the same identifier counts as come
    /// back; later the user may have started it.
    static constexpr std::chrono::seconds returnTime{3};

    /// Works on the machine.
    explicit QuitTogether(Platform platform)
        : QuitTogether(platform, platformOperations(platform)) {}

    /// Works through `operations`; it never sleeps.
    QuitTogether(Platform platform, AppQuitterOperations operations)
        : platform_(platform), operations_(std::move(operations)) {}

    /// Begins to quit these applications on the next turns of the loop, but for those under way.
    void begin(const std::vector<AppInfo>& apps, bool force);

    /// Ends all waiting. Nothing is sent any more; what has not ended counts as stayed.
    void cancel();

    /// Forgets the last operation. Does nothing while one is under way.
    void forget();

    /// Forgets the result of the last operation and what it ended: what starts from now on did not
    /// come back by itself. What stayed keeps its reason. Does nothing while one is under way.
    void forgetEnded();

    /// What starts as this application from now on was started on purpose.
    void expectReturn(ProcessId pid);

    [[nodiscard]] bool isUnderWay() const { return underWay_ > 0; }

    /// The state of the application with this process id.
    [[nodiscard]] QuitState state(ProcessId pid) const;

    /// Whether any application has a reason for having stayed.
    [[nodiscard]] bool hasReasons() const;

    /// What the operation has come to so far; absent when there was none, or it was forgotten.
    [[nodiscard]] std::optional<QuitResult> result() const;

    /// Checks the processes of what is under way now instead of at the next tick.
    void check();

    /// Looks again whether the reasons still hold, and what of `running` has come back.
    void lookAgain(const ApplicationSnapshot& running);

    /// Calls `handler` when the state of an application has changed, until the token ends.
    [[nodiscard]] Subscription onChanged(std::function<void()> handler) {
        return changed_.connect(std::move(handler));
    }

    /// Calls `handler` with what is gone, as it goes.
    [[nodiscard]] Subscription onGone(std::function<void(const std::vector<AppInfo>&)> handler) {
        return gone_.connect(std::move(handler));
    }

    /// Calls `handler` at the end of each operation, with all that it has ended.
    [[nodiscard]] Subscription
    onFinished(std::function<void(const std::vector<AppInfo>&)> handler) {
        return finished_.connect(std::move(handler));
    }

  private:
    enum class Stage {
        waiting,
        asked,
        terminated,
        killed,
        /// Ended before it was asked.
        vanished,
        gone,
        stayed,
    };

    /// One application of the operation.
    struct Member {
        AppInfo app;
        bool isForced = false;
        Stage stage = Stage::waiting;
        /// Of the process that is meant.
        std::uint64_t process = 0;
        double memoryMB = 0;
        /// When its stage ends at the latest; once it is gone, when it ended.
        std::chrono::nanoseconds deadline{};
        QuitState reason = QuitState::none;
        bool isExpectedBack = false;
        /// The process as which it came back; 0 for none.
        ProcessId returned = 0;

        // While it is under way.
        AppQuitterOperations::Application application = nullptr;
        bool hasSeveralCandidates = false;
        HeldProcesses processes = {};
        std::optional<ForcedQuit> forced = {};
        /// When a request that is not complete goes on.
        std::optional<std::chrono::nanoseconds> continuesAt = {};
    };

    [[nodiscard]] static bool isUnderWay(const Member& member) {
        return member.stage < Stage::vanished;
    }

    [[nodiscard]] const Member* find(ProcessId pid) const;
    [[nodiscard]] double memoryOf(const AppInfo& app) const;
    void askSome();
    void ask(Member& member);
    void goOn(Member& member, const QuitRequest& request);
    void advance(Member& member);
    void kill(Member& member);
    bool endIfGone(Member& member);
    [[nodiscard]] bool isGone(const Member& member) const;
    [[nodiscard]] bool isRefused(ProcessId pid) const;
    /// `isRefused`: a signal was refused (EPERM), or nothing could be sent and a signal would be.
    void end(Member& member, Stage stage, bool isRefused = false);
    void updateReason(Member& member);
    void updateReturn(Member& member, const ApplicationSnapshot& running) const;
    void tell();

    Platform platform_;
    AppQuitterOperations operations_;
    std::vector<Member> members_;
    bool isResultForgotten_ = false;
    /// How many members are under way.
    std::size_t underWay_ = 0;
    /// The processes that were there when the operation began.
    std::set<ProcessId> before_;
    /// The instances that the operation has forced.
    std::set<ProcessId> forced_;
    /// An application is no longer under way, and nobody was told yet.
    bool isChanged_ = false;
    /// What is gone, likewise.
    std::vector<AppInfo> untold_;
    Subscription asking_;
    Subscription ticking_;
    Signal<> changed_;
    Signal<const std::vector<AppInfo>&> gone_;
    Signal<const std::vector<AppInfo>&> finished_;
};

} // namespace calmora
