#pragma once

#include "platform/RunningApplication.h"
#include "platform/linux/workspace/ApplicationList.h"
#include "platform/linux/workspace/QuitRequests.h"
#include "platform/linux/workspace/WorkspaceSources.h"

#include <memory>
#include <span>
#include <string>

namespace calmora {

/// One process that is an application, bound to that process: another one that gets its id later
/// is never touched. Main thread.
class LinuxRunningApplication final : public RunningApplication {
  public:
    /// `bundle` is the path for bundleURL(). `sources` and `requests` outlive the object.
    LinuxRunningApplication(const WorkspaceSources& sources, QuitRequests& requests,
                            std::shared_ptr<const ListedApplication> application,
                            std::string bundle);

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override;
    [[nodiscard]] std::optional<std::string> bundleURL() const override;
    [[nodiscard]] std::optional<std::filesystem::path> executableURL() const override;
    [[nodiscard]] ProcessId processIdentifier() const override;
    [[nodiscard]] bool isTerminated() const override;

    /// Asks each of its windows to close, once. Nothing is sent and the answer is false while the
    /// application asks its user something because of an earlier request. One that hides in the
    /// tray when it is closed is asked over the bus, or ended once it has hidden, for which this
    /// waits up to 0.3 s. Where no window can be asked the process gets SIGTERM.
    ///
    /// SIGTERM asks nobody, so it is sent only on what windows said a moment before, and never to a
    /// process whose windows are merely claimed to be its own. Nor is it where the application may
    /// have windows that cannot be seen: on a Wayland session one that seems to live in the tray
    /// alone gets nothing unless it can be asked over the bus, and the answer is false.
    bool terminate() override;

    /// SIGTERM, and SIGCONT so that a stopped process takes it.
    bool forceTerminate() override;

  private:
    [[nodiscard]] std::vector<WindowId> askableWindows() const;
    [[nodiscard]] bool hidesWhenClosed() const;
    [[nodiscard]] bool mayBeSignalled(std::span<const TopLevelWindow> windows) const;
    bool quitOverBus();
    bool requestClose();
    bool endInsteadOfAsking();
    void endOnceHidden(std::span<const TopLevelWindow> before);

    const WorkspaceSources& sources_;
    QuitRequests& requests_;
    std::shared_ptr<const ListedApplication> application_;
    std::string bundle_;
};

} // namespace calmora
