// SPDX-License-Identifier: MIT
#pragma once

#include "platform/gnome/ShellWindow.h"
#include "platform/linux/windows/ListedWindows.h"
#include "platform/linux/windows/OwnerProcess.h"
#include "platform/linux/windows/OwnerWatch.h"
#include "platform/linux/windows/WindowNumbers.h"
#include "platform/linux/windows/WindowSystem.h"
#include "support/Subscription.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace calmora {

class ShellLink;

/// The windows of a GNOME session on Wayland, as our extension in its shell tells them. While
/// the extension is not there it lists stand-ins, if anything.
///
/// X11 windows are listed without an owner and are never asked to close: the X server knows
/// better, see CompositeWindowSystem.
class ShellWindowSystem final : public WindowSystem {
  public:
    /// Gives what is listed while the extension is away; `isAfresh` asks for no older answer.
    using StandIns = std::function<const std::vector<ShellWindow>&(bool isAfresh)>;

    /// `link` must outlive it. `standIns` is called when windows are listed, not before; null for
    /// none.
    explicit ShellWindowSystem(ShellLink& link, StandIns standIns = nullptr,
                               OwnerLookup lookUp = ownersFromKernel());
    ShellWindowSystem(const ShellWindowSystem&) = delete;
    ShellWindowSystem& operator=(const ShellWindowSystem&) = delete;

    /// The extension may come at any time.
    [[nodiscard]] bool isAlive() const override { return true; }

    [[nodiscard]] const std::vector<TopLevelWindow>& windows() override;
    [[nodiscard]] const std::vector<TopLevelWindow>& windowsReadAfresh() override;

    /// False while the extension is away or does not answer.
    [[nodiscard]] bool coversAllWindows() const override;

    [[nodiscard]] std::optional<WindowId> activeWindow() override;

    [[nodiscard]] Subscription onWindowsChanged(std::function<void()> handler) override {
        return listed_.onWindowsChanged(std::move(handler));
    }

    [[nodiscard]] Subscription onActiveWindowChanged(std::function<void()> handler) override {
        return listed_.onActiveWindowChanged(std::move(handler));
    }

    bool requestClose(WindowId window, ProcessId process) override;
    bool activate(WindowId window) override;

    /// Wayland windows carry none.
    [[nodiscard]] std::shared_ptr<const ImagePixels> icon(WindowId /*window*/) override {
        return nullptr;
    }

    /// The shell, and whose windows are docks and desktops.
    [[nodiscard]] std::vector<ProcessId> displayProcesses() override;

    [[nodiscard]] std::vector<ProcessId> trayIconProcesses() override { return {}; }

    void flush() override {}

  private:
    void update();
    [[nodiscard]] std::vector<ShellWindow> told(bool isAfresh);
    void readWindows(const std::vector<ShellWindow>& told);
    [[nodiscard]] TopLevelWindow windowOf(const ShellWindow& told) const;

    ShellLink& link_;
    StandIns standIns_;
    OwnerLookup lookUp_;
    QObject context_;
    ListedWindows listed_;
    std::vector<ShellWindow> told_;
    std::uint64_t toldFocus_ = 0;
    /// The shell's own numbers may be too large for us.
    WindowNumbers<std::uint64_t> numbers_;
    OwnerWatch owners_;
    Subscription changes_;
};

/// The windows where the session is a Wayland session; else null: X11 knows all of them.
[[nodiscard]] std::unique_ptr<WindowSystem> makeShellWindows(ShellLink& link,
                                                             ShellWindowSystem::StandIns standIns);

} // namespace calmora
