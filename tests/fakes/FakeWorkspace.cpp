#include "fakes/FakeWorkspace.h"

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

WorkspaceApplication record(const FakeApplication& application) {
    return {application.pid, application.bundleIdentifier, application.name, application.icon,
            application.policy};
}

} // namespace

class FakeWorkspace::Live final : public RunningApplication {
  public:
    Live(FakeWorkspace& workspace, FakeApplication application)
        : workspace_(workspace), application_(std::move(application)) {}

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override {
        return application_.bundleIdentifier;
    }

    [[nodiscard]] std::optional<std::string> bundleURL() const override {
        return application_.bundleURL;
    }

    [[nodiscard]] std::optional<std::filesystem::path> executableURL() const override {
        return application_.executableURL;
    }

    [[nodiscard]] ProcessId processIdentifier() const override { return application_.pid; }

    [[nodiscard]] bool isTerminated() const override { return !workspace_.isRunning(application_); }

    bool terminate() override {
        workspace_.terminateRequests.push_back(application_.pid);
        return answer(application_.acceptsTerminate, application_.endsAfterTerminate);
    }

    bool forceTerminate() override {
        workspace_.forceRequests.push_back(application_.pid);
        return answer(application_.acceptsForce, application_.endsAfterForce);
    }

  private:
    bool answer(bool accepts, std::optional<std::chrono::milliseconds> endsAfter) {
        if (!accepts || isTerminated()) {
            return false;
        }
        if (endsAfter) {
            const auto end = [&workspace = workspace_, application = application_] {
                if (workspace.isRunning(application)) {
                    workspace.processes_.end(application.pid);
                }
            };
            if (endsAfter->count() == 0) {
                end();
            } else {
                workspace_.clock_.after(*endsAfter, end);
            }
        }
        return true;
    }

    FakeWorkspace& workspace_;
    FakeApplication application_;
};

FakeWorkspace::FakeWorkspace(FakeProcessTable& processes, FakeClock& clock, FakeRunLoop& runLoop)
    : processes_(processes), clock_(clock), runLoop_(runLoop) {
    ended_ = processes_.ended.connect([this](ProcessId process) {
        const auto found = std::ranges::find(applications_, process, &FakeApplication::pid);
        if (found != applications_.end()) {
            tell(terminated, *found);
            applications_.erase(found);
        }
    });
}

void FakeWorkspace::launch(FakeApplication application) {
    processes_.start(application.pid, application.process);
    application.process.serial = processes_.serial(application.pid);
    tell(launched, application);
    applications_.push_back(std::move(application));
}

FakeApplication& FakeWorkspace::at(ProcessId process) {
    const auto found = std::ranges::find(applications_, process, &FakeApplication::pid);
    return applications_.at(static_cast<std::size_t>(found - applications_.begin()));
}

void FakeWorkspace::activate(std::optional<ProcessId> process) {
    frontmost_ = process;
    const auto found = std::ranges::find(applications_, process, &FakeApplication::pid);
    if (found != applications_.end()) {
        tell(activated, *found);
    }
}

std::vector<WorkspaceApplication> FakeWorkspace::runningApplications() {
    ++lists;
    std::vector<WorkspaceApplication> listed;
    for (const FakeApplication& application : applications_) {
        if (isRunning(application)) {
            listed.push_back(record(application));
        }
    }
    return listed;
}

std::optional<WorkspaceApplication> FakeWorkspace::frontmostApplication() {
    const auto found = std::ranges::find(applications_, frontmost_, &FakeApplication::pid);
    return found != applications_.end() ? std::optional(record(*found)) : std::nullopt;
}

std::unique_ptr<RunningApplication> FakeWorkspace::runningApplication(ProcessId processIdentifier) {
    lookups.push_back(processIdentifier);
    const auto found = std::ranges::find(applications_, processIdentifier, &FakeApplication::pid);
    return found != applications_.end() && isRunning(*found) ? std::make_unique<Live>(*this, *found)
                                                             : nullptr;
}

std::vector<std::unique_ptr<RunningApplication>>
FakeWorkspace::runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) {
    identifierLookups.push_back(bundleIdentifier);
    std::vector<std::unique_ptr<RunningApplication>> result;
    for (const FakeApplication& application : applications_) {
        if (application.bundleIdentifier == bundleIdentifier && isRunning(application)) {
            result.push_back(std::make_unique<Live>(*this, application));
        }
    }
    return result;
}

std::string FakeWorkspace::canonicalIdentifier(const std::string& identifier) const {
    const auto found = canonicalIdentifiers.find(identifier);
    return found != canonicalIdentifiers.end() ? found->second : identifier;
}

std::optional<InstalledApplication>
FakeWorkspace::installedApplication(const std::string& bundleIdentifier) const {
    const auto found = installed.find(bundleIdentifier);
    return found != installed.end() ? std::optional(found->second) : std::nullopt;
}

Subscription FakeWorkspace::onLaunched(Handler handler) {
    return launched.connect(std::move(handler));
}

Subscription FakeWorkspace::onTerminated(Handler handler) {
    return terminated.connect(std::move(handler));
}

Subscription FakeWorkspace::onActivated(Handler handler) {
    return activated.connect(std::move(handler));
}

void FakeWorkspace::tell(const Signal<const WorkspaceApplication&>& notice,
                         const FakeApplication& application) {
    notices_.push_back(
        runLoop_.nextTurn([&notice, told = record(application)] { notice.emit(told); }));
}

bool FakeWorkspace::isRunning(const FakeApplication& application) const {
    return processes_.serial(application.pid) == application.process.serial;
}

} // namespace calmora
