#pragma once

#include "fakes/FakeProcessTable.h"
#include "fakes/FakeRunLoop.h"
#include "platform/Workspace.h"
#include "support/Signal.h"

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

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

    /// The answers of terminate() and forceTerminate().
    bool acceptsTerminate = true;
    bool acceptsForce = true;
    /// When the process ends after an accepted request; absent means never.
    std::optional<std::chrono::milliseconds> endsAfterTerminate{0};
    std::optional<std::chrono::milliseconds> endsAfterForce{0};
};

/// Running applications in memory, each with its process in the fake table: an application whose
/// process has ended is no longer listed. Notices come on the next turn of the loop.
class FakeWorkspace final : public Workspace {
  public:
    FakeWorkspace(FakeProcessTable& processes, FakeClock& clock, FakeRunLoop& runLoop);

    /// Starts an application and its process.
    void launch(FakeApplication application);

    /// A running application, to be changed; throws where there is none.
    [[nodiscard]] FakeApplication& at(ProcessId process);

    /// Brings an application to the front, or none.
    void activate(std::optional<ProcessId> process);

    [[nodiscard]] std::vector<WorkspaceApplication> runningApplications() override;
    [[nodiscard]] std::optional<WorkspaceApplication> frontmostApplication() override;
    [[nodiscard]] std::unique_ptr<RunningApplication>
    runningApplication(ProcessId processIdentifier) override;
    [[nodiscard]] std::vector<std::unique_ptr<RunningApplication>>
    runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) override;
    [[nodiscard]] std::string canonicalIdentifier(const std::string& identifier) const override;
    [[nodiscard]] std::optional<InstalledApplication>
    installedApplication(const std::string& bundleIdentifier) const override;
    [[nodiscard]] Subscription onLaunched(Handler handler) override;
    [[nodiscard]] Subscription onTerminated(Handler handler) override;
    [[nodiscard]] Subscription onActivated(Handler handler) override;

    /// How often the list was asked for.
    int lists = 0;
    /// Every process id and identifier that was looked up, in order.
    std::vector<ProcessId> lookups;
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
    class Live;

    void tell(const Signal<const WorkspaceApplication&>& notice,
              const FakeApplication& application);
    [[nodiscard]] bool isRunning(const FakeApplication& application) const;

    FakeProcessTable& processes_;
    FakeClock& clock_;
    FakeRunLoop& runLoop_;
    /// In the order of starting.
    std::vector<FakeApplication> applications_;
    std::optional<ProcessId> frontmost_;
    std::vector<Subscription> notices_;
    Subscription ended_;
};

} // namespace calmora
