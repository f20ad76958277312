// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/windows/ListedWindows.h"
#include "platform/linux/windows/OwnerProcess.h"
#include "platform/linux/windows/OwnerWatch.h"
#include "platform/linux/windows/WindowNumbers.h"
#include "platform/linux/windows/WindowSystem.h"
#include "platform/wayland/KwinReport.h"
#include "platform/wayland/kwin/KwinScripts.h"
#include "support/Subscription.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace calmora {

/// The windows of a Plasma session on Wayland, from a script of ours within KWin. It listens all
/// the time, and again when KWin has been restarted.
///
/// X11 windows are listed without an owner and are never asked to close: KWin kills the client of
/// one that cannot be asked. The X server knows better, see CompositeWindowSystem.
class KwinWindowSystem final : public WindowSystem {
  public:
    /// Not alive where nobody owns the name org.kde.KWin, or its owner is not the compositor that
    /// listens on `socket`. Lists nothing before the main loop runs. No answer is waited for longer
    /// than `timeout`; after a request that got none, KWin is given that time ten times over before
    /// the next one.
    KwinWindowSystem(const QDBusConnection& connection, const std::string& socket,
                     std::chrono::milliseconds timeout = std::chrono::seconds(1),
                     OwnerLookup lookUp = ownersFromKernel());
    KwinWindowSystem(const KwinWindowSystem&) = delete;
    KwinWindowSystem& operator=(const KwinWindowSystem&) = delete;
    ~KwinWindowSystem() override;

    [[nodiscard]] bool isAlive() const override { return isAlive_; }

    [[nodiscard]] const std::vector<TopLevelWindow>& windows() override;
    [[nodiscard]] const std::vector<TopLevelWindow>& windowsReadAfresh() override;

    [[nodiscard]] bool endsSlowClients() const override { return report_.endsSlowClients; }

    /// False while KWin does not answer.
    [[nodiscard]] bool coversAllWindows() const override { return isWatching_; }

    [[nodiscard]] std::optional<WindowId> activeWindow() override;

    [[nodiscard]] Subscription onWindowsChanged(std::function<void()> handler) override {
        return listed_.onWindowsChanged(std::move(handler));
    }

    [[nodiscard]] Subscription onActiveWindowChanged(std::function<void()> handler) override {
        return listed_.onActiveWindowChanged(std::move(handler));
    }

    /// As after a click on the close button, see TopLevelWindow::mustAnswerSoon.
    bool requestClose(WindowId window, ProcessId process) override;
    bool activate(WindowId window) override;

    /// Wayland windows carry none.
    [[nodiscard]] std::shared_ptr<const ImagePixels> icon(WindowId /*window*/) override {
        return nullptr;
    }

    /// KWin, who started it, and whose windows are panels and desktops.
    [[nodiscard]] std::vector<ProcessId> displayProcesses() override;

    [[nodiscard]] std::vector<ProcessId> trayIconProcesses() override { return {}; }

    void flush() override {}

  private:
    void kwinChanged(const QString& uniqueName);
    std::optional<bool> run(const QString& script, const KwinScripts::Task& task);
    void update();
    void accept(KwinReport report);
    void readWindows();
    [[nodiscard]] TopLevelWindow windowOf(const KwinWindow& reported) const;

    QDBusConnection connection_;
    std::string socket_;
    std::chrono::milliseconds timeout_;
    OwnerLookup lookUp_;
    KwinScripts scripts_;
    QDBusServiceWatcher watcher_;
    bool isAlive_ = false;
    /// The script that reports changes runs, and the last request was answered.
    bool isWatching_ = false;
    /// Active at first and after a request that got no answer; none is sent meanwhile.
    QTimer pause_;
    /// KWin, and the process that listens on its socket for it.
    std::vector<ProcessId> compositor_;

    KwinReport report_;
    ListedWindows listed_;
    WindowNumbers<std::string> numbers_;
    OwnerWatch owners_;
};

/// The windows of the Wayland session of the environment if KWin is its compositor; else null.
/// Waits a few seconds at most.
[[nodiscard]] std::unique_ptr<WindowSystem> makeKwinWindows(const QDBusConnection& connection);

} // namespace calmora
