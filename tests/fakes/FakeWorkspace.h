// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeProcessTable.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/LookUp.h"
#include "platform/Workspace.h"

namespace calmora {

/// One application of a fake workspace and how it takes being asked to quit.
struct FakeApplication {
    ProcessId pid = 0;
    std::optional<std::string> name = {};
    std::optional<std::string> bundleIdentifier = {};
    ActivationPolicy policy = ActivationPolicy::regular;
    std::optional<Image> icon = {};
    std::optional<std::string> bundleURL = {};
    std::optional<std::filesystem::path> executableURL = {};
    FakeProcess process = {};
    std::vector<std::string> otherIdentifiers = {};
    /// With some, it is gone by closing its windows, and its processes stay.
    std::vector<ProcessId> candidates = {};
    bool mustAnswerSoon = false;
    bool isActivityKnown = true;
    std::optional<std::string> desktopId = {};
    std::uint64_t startTime = 0;

    /// The answers of terminate() and forceTerminate().
    bool acceptsTerminate = true;
    bool acceptsForce = true;
    /// When the process ends after an accepted request; absent means never.
    std::optional<std::chrono::milliseconds> endsAfterTerminate{0};
    std::optional<std::chrono::milliseconds> endsAfterForce{0};
    /// A pause after which the request is made when it is not made at once.
    std::optional<std::chrono::milliseconds> pausesFirst = {};
    /// What it shows after a request to quit.
    bool isAsking = false;
    bool isUnresponsive = false;
};

/// Running applications in memory, each with its process in the fake table: an application whose
/// process has ended is no longer listed. Notices come on the next turn of the loop.
class FakeWorkspace final : public Workspace {
  public:
    FakeWorkspace(FakeProcessTable& processes, FakeClock& clock, FakeRunLoop& runLoop)
        : processes_(processes), clock_(clock), runLoop_(runLoop) {}

    /// Starts an application and its process.
    void launch(FakeApplication application) {
        processes_.start(application.pid, application.process);
        application.process.serial = processes_.serial(application.pid);
        tell(launched, application);
        applications_.push_back(std::move(application));
    }

    /// A running application, to be changed; throws where there is none.
    FakeApplication& at(ProcessId process) {
        return applications_.at(static_cast<std::size_t>(find(process) - applications_.begin()));
    }

    /// Brings an application to the front, or none.
    void activate(std::optional<ProcessId> process) {
        frontmost_ = process;
        if (const auto found = find(process); found != applications_.end()) {
            tell(activated, *found);
        }
    }

    ApplicationSnapshot runningApplications() override {
        ++lists;
        ApplicationSnapshot listed;
        for (const FakeApplication& application : applications_) {
            if (isRunning(application)) {
                listed.push_back(record(application));
            }
        }
        return listed;
    }

    std::optional<WorkspaceApplication> frontmostApplication() override {
        const auto found = find(frontmost_);
        return found != applications_.end() ? std::optional(record(*found)) : std::nullopt;
    }

    std::unique_ptr<RunningApplication> runningApplication(ProcessId process) override {
        const auto found = find(process);
        return found != applications_.end() && isRunning(*found)
                   ? std::make_unique<Live>(*this, *found)
                   : nullptr;
    }

    std::vector<std::unique_ptr<RunningApplication>>
    runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) override {
        identifierLookups.push_back(bundleIdentifier);
        std::vector<std::unique_ptr<RunningApplication>> result;
        for (const FakeApplication& application : applications_) {
            if (application.bundleIdentifier == bundleIdentifier && isRunning(application)) {
                result.push_back(std::make_unique<Live>(*this, application));
            }
        }
        return result;
    }

    std::string canonicalIdentifier(const std::string& identifier) const override {
        return lookUp(canonicalIdentifiers, identifier).value_or(identifier);
    }

    std::optional<InstalledApplication>
    installedApplication(const std::string& bundleIdentifier) const override {
        return lookUp(installed, bundleIdentifier);
    }

    Subscription onLaunched(Handler handler) override { return launched.connect(handler); }

    Subscription onTerminated(Handler handler) override { return terminated.connect(handler); }

    Subscription onActivated(Handler handler) override { return activated.connect(handler); }

    /// How often the list was asked for.
    int lists = 0;
    /// Every identifier that was looked up, in order.
    std::vector<std::string> identifierLookups;
    /// Every application that was asked to quit, or forced to, in order.
    std::vector<ProcessId> terminateRequests;
    std::vector<ProcessId> forceRequests;
    /// Stored identifiers that mean another one.
    std::map<std::string, std::string> canonicalIdentifiers;
    /// What is installed, by identifier.
    std::map<std::string, InstalledApplication> installed;
    Signal<const WorkspaceApplication&> launched;
    Signal<const WorkspaceApplication&> terminated;
    Signal<const WorkspaceApplication&> activated;

  private:
    class Live final : public RunningApplication {
      public:
        Live(FakeWorkspace& workspace, FakeApplication application)
            : workspace_(workspace), self_(std::move(application)) {}

        std::optional<std::string> bundleIdentifier() const override {
            return self_.bundleIdentifier;
        }

        std::optional<std::string> bundleURL() const override { return self_.bundleURL; }

        std::optional<std::filesystem::path> executableURL() const override {
            return self_.executableURL;
        }

        ProcessId processIdentifier() const override { return self_.pid; }

        bool isTerminated() const override { return !workspace_.isRunning(self_); }

        bool hasSeveralCandidates() const override { return workspace_.isOneOfSeveral(self_.pid); }

        bool terminate() override {
            workspace_.terminateRequests.push_back(self_.pid);
            return answer(self_.acceptsTerminate, self_.endsAfterTerminate);
        }

        QuitRequest beginTerminate() override {
            return self_.pausesFirst ? QuitRequest{.pause = self_.pausesFirst}
                                     : QuitRequest{.wasSent = terminate()};
        }

        QuitRequest continueTerminate() override { return {.wasSent = terminate()}; }

        bool isAsking() const override { return workspace_.at(self_.pid).isAsking; }

        bool isUnresponsive() const override { return workspace_.at(self_.pid).isUnresponsive; }

        bool activate() override {
            workspace_.activate(self_.pid);
            return true;
        }

        bool forceTerminate() override {
            workspace_.forceRequests.push_back(self_.pid);
            return answer(self_.acceptsForce, self_.endsAfterForce);
        }

      private:
        bool answer(bool accepts, std::optional<std::chrono::milliseconds> endsAfter) {
            accepts = accepts && !isTerminated();
            if (accepts && endsAfter) {
                workspace_.clock_.after(*endsAfter, [&workspace = workspace_, self = self_] {
                    if (!self.candidates.empty()) {
                        workspace.closed_.insert(self.pid);
                    } else if (workspace.isRunning(self)) {
                        workspace.processes_.end(self.pid);
                    }
                });
                workspace_.clock_.advance({});
            }
            return accepts;
        }

        FakeWorkspace& workspace_;
        FakeApplication self_;
    };

    bool isOneOfSeveral(ProcessId process) const {
        return std::ranges::any_of(applications_, [process](const FakeApplication& application) {
            return std::ranges::binary_search(application.candidates, process);
        });
    }

    WorkspaceApplication record(const FakeApplication& application) const {
        return {application.pid,
                application.bundleIdentifier,
                application.name,
                application.icon,
                application.policy,
                application.otherIdentifiers,
                application.candidates,
                !isOneOfSeveral(application.pid),
                application.mustAnswerSoon,
                application.isActivityKnown,
                application.desktopId,
                application.startTime};
    }

    std::vector<FakeApplication>::iterator find(std::optional<ProcessId> process) {
        return std::ranges::find(applications_, process, &FakeApplication::pid);
    }

    void tell(const Signal<const WorkspaceApplication&>& notice, const FakeApplication& of) {
        notices_.push_back(runLoop_.nextTurn([&notice, told = record(of)] { notice.emit(told); }));
    }

    bool isRunning(const FakeApplication& application) const {
        return processes_.serial(application.pid) == application.process.serial &&
               !closed_.contains(application.pid);
    }

    FakeProcessTable& processes_;
    FakeClock& clock_;
    FakeRunLoop& runLoop_;
    /// In the order of starting.
    std::vector<FakeApplication> applications_;
    std::set<ProcessId> closed_;
    std::optional<ProcessId> frontmost_;
    std::vector<Subscription> notices_;
    Subscription ended_ = processes_.ended.connect([this](ProcessId process) {
        if (const auto found = find(process); found != applications_.end()) {
            tell(terminated, *found);
            applications_.erase(found);
        }
    });
};

} // namespace calmora
