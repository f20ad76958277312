// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"
#include "platform/linux/workspace/ApplicationList.h"
#include "platform/linux/workspace/QuitRequests.h"

#include <chrono>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace calmora {

/// An application process. Never affects another process that reuses its id. Main thread.
class LinuxRunningApplication final : public RunningApplication {
  public:
    /// `bundle` is the path for bundleURL(). `sources` and `requests` must outlive this object.
    LinuxRunningApplication(const WorkspaceSources& sources, QuitRequests& requests,
                            std::shared_ptr<const ListedApplication> application,
                            std::string bundle);

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override;
    [[nodiscard]] std::optional<std::string> bundleURL() const override;
    [[nodiscard]] std::optional<std::filesystem::path> executableURL() const override;
    [[nodiscard]] ProcessId processIdentifier() const override;
    [[nodiscard]] bool isTerminated() const override;
    [[nodiscard]] bool hasSeveralCandidates() const override;

    /// Asks each of its windows to close once. Sends nothing and returns false while the
    /// application asks its user something because of an earlier request. One that hides in the
    /// tray when closed is asked over the bus, or ended once hidden; this waits up to 0.3 s for
    /// that. Without a window to ask, the process gets SIGTERM.
    ///
    /// SIGTERM bypasses the user's confirmation. It is sent only after the windows were read again,
    /// and never to a process with merely claimed windows or possibly invisible ones: in a Wayland
    /// session, one that seems to live only in the tray is asked over the bus or not at all, and
    /// the result is false. With several candidates only windows are asked, each as whoever's it
    /// is by then.
    bool terminate() override;

    QuitRequest beginTerminate() override;
    QuitRequest continueTerminate() override;

    /// Asks each window of its own that may be asked to close, see WindowSystem::ping().
    void probe() override;
    [[nodiscard]] bool isUnresponsive() const override;
    [[nodiscard]] bool isAsking() const override;
    bool activate() override;

    /// Sends SIGTERM, and SIGCONT to wake a stopped process.
    bool forceTerminate() override;

  private:
    [[nodiscard]] std::vector<WindowId> askableWindows() const;
    [[nodiscard]] bool hidesWhenClosed() const;
    [[nodiscard]] bool mayBeSignalled(std::span<const TopLevelWindow> windows) const;
    [[nodiscard]] std::vector<ProcessId> processes() const;
    [[nodiscard]] bool wasListed(const TopLevelWindow& window) const;
    [[nodiscard]] bool isOpenWindow(const TopLevelWindow& window) const;
    [[nodiscard]] bool isProtectedNow() const;
    bool beginRequest(std::span<const TopLevelWindow> windows);
    bool quitOverBus();
    bool requestClose();
    QuitRequest askForTheFirstTime();
    bool endInsteadOfAsking();
    QuitRequest endOnceHidden();
    [[nodiscard]] std::optional<WindowId> question() const;

    const WorkspaceSources& sources_;
    QuitRequests& requests_;
    std::shared_ptr<const ListedApplication> application_;
    std::string bundle_;

    /// A request that is not complete.
    enum class Rest {
        nothing,
        /// The list of windows was empty, which may be a moment's matter.
        settling,
        /// Its windows have been asked to close; with a tray icon it may live on without them.
        hiding,
    };
    Rest rest_ = Rest::nothing;
    /// The windows of all applications before the request.
    std::vector<TopLevelWindow> before_;
    std::chrono::nanoseconds hidingDeadline_{};
};

} // namespace calmora
