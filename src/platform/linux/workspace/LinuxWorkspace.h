// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"
#include "platform/linux/workspace/ApplicationList.h"
#include "platform/linux/workspace/LinuxRunningApplication.h"
#include "platform/linux/workspace/QuitRequests.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace calmora {

class PidFd;

/// The running applications of a Linux desktop. An application is a process: ActivationRules.h
/// decides whether it is one, ApplicationIdentifier.h which one.
///
/// With listeners, events keep the list up to date: windows, the bus, and a pidfd per application.
/// A scan every two seconds finds applications without windows, which cause no event. Without
/// listeners the list is built on request. Main thread.
class LinuxWorkspace final : public Workspace {
  public:
    explicit LinuxWorkspace(WorkspaceSources sources);
    LinuxWorkspace(const LinuxWorkspace&) = delete;
    LinuxWorkspace& operator=(const LinuxWorkspace&) = delete;
    ~LinuxWorkspace() override;

    [[nodiscard]] ApplicationSnapshot runningApplications() override;
    [[nodiscard]] std::optional<WorkspaceApplication> frontmostApplication() override;
    [[nodiscard]] std::unique_ptr<RunningApplication>
    runningApplication(ProcessId processIdentifier) override;
    [[nodiscard]] std::vector<std::unique_ptr<RunningApplication>>
    runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) override;
    [[nodiscard]] bool belongsToAnotherProgram(const std::string& bundlePath,
                                               const std::string& executable) const override;
    [[nodiscard]] std::string canonicalIdentifier(const std::string& identifier) const override;
    [[nodiscard]] std::optional<InstalledApplication>
    installedApplication(const std::string& bundleIdentifier) const override;

    [[nodiscard]] Subscription onLaunched(Handler handler) override {
        return launched_.connect(std::move(handler));
    }

    [[nodiscard]] Subscription onTerminated(Handler handler) override {
        return terminated_.connect(std::move(handler));
    }

    [[nodiscard]] Subscription onActivated(Handler handler) override {
        return activated_.connect(std::move(handler));
    }

  private:
    using Application = std::shared_ptr<const ListedApplication>;

    /// Watches for the end of one listed process.
    struct EndWatch {
        std::shared_ptr<const PidFd> process;
        Subscription subscription;
    };

    void listenersChanged();
    void watchEnds();
    void changed();
    void activeChanged();
    void tellSoon();

    [[nodiscard]] bool isListening() const {
        return launched_.hasListeners() || terminated_.hasListeners();
    }

    /// While it is held, repeated requests read the windows only once.
    [[nodiscard]] Subscription followWindows() {
        return sources_.windows.onWindowsChanged([] {});
    }

    const ApplicationList::Applications& updated();
    const ApplicationList::Applications& current();
    [[nodiscard]] Application activeApplication();
    [[nodiscard]] std::unique_ptr<RunningApplication> bound(const Application& application);

    WorkspaceSources sources_;
    /// Mutable because look-ups may refresh the installed applications.
    mutable ApplicationList list_;
    QuitRequests requests_;
    Signal<const WorkspaceApplication&> launched_;
    Signal<const WorkspaceApplication&> terminated_;
    Signal<const WorkspaceApplication&> activated_;

    /// The applications last reported to listeners.
    ApplicationList::Applications told_;
    Application lastActive_;
    std::map<ProcessId, EndWatch> ends_;
    Subscription windowsChanged_;
    Subscription busChanged_;
    Subscription activeChanged_;
    Subscription unknownWindow_;
    Subscription scanning_;
    Subscription telling_;
};

} // namespace calmora
