// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/windows/WindowSystem.h"
#include "support/Signal.h"

#include <utility>
#include <vector>

namespace calmora {

/// A window system in memory, whose windows a test puts there.
class FakeWindowSystem final : public WindowSystem {
  public:
    bool isAlive() const override { return true; }

    const std::vector<TopLevelWindow>& windows() override { return all; }

    const std::vector<TopLevelWindow>& windowsReadAfresh() override { return all; }

    std::string displayName() const override { return display; }

    bool coversAllWindows() const override { return covers; }

    std::optional<WindowId> activeWindow() override { return active; }

    Subscription onWindowsChanged(std::function<void()> handler) override {
        return changed.connect(std::move(handler));
    }

    Subscription onActiveWindowChanged(std::function<void()> handler) override {
        return activeChanged.connect(std::move(handler));
    }

    bool requestClose(WindowId window, ProcessId process) override {
        asked.emplace_back(window, process);
        return true;
    }

    std::shared_ptr<const ImagePixels> icon(WindowId) override {
        ++iconsRead;
        return nullptr;
    }

    std::vector<ProcessId> displayProcesses() override { return {}; }

    std::vector<ProcessId> trayIconProcesses() override { return {}; }

    void flush() override {}

    std::vector<TopLevelWindow> all;
    std::string display;
    bool covers = true;
    std::optional<WindowId> active;
    int iconsRead = 0;
    Signal<> changed;
    Signal<> activeChanged;
    /// The windows that were asked to close, and as whose.
    std::vector<std::pair<WindowId, ProcessId>> asked;
};

} // namespace calmora
