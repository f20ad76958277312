#pragma once

#include "platform/linux/windows/WindowSystem.h"

#include <utility>
#include <vector>

namespace calmora {

/// Several window systems as one: a Wayland compositor with the X server that it starts for X11
/// programs. Single answers come from the first part that has one.
class CompositeWindowSystem final : public WindowSystem {
  public:
    /// The parts must outlive this object and number their windows below 2^56. At most 256.
    explicit CompositeWindowSystem(std::vector<WindowSystem*> parts) : parts_(std::move(parts)) {}

    /// Whether any part is.
    [[nodiscard]] bool isAlive() const override;
    [[nodiscard]] std::string displayName() const override;
    /// The windows of all parts, part by part.
    [[nodiscard]] const std::vector<TopLevelWindow>& windows() override;
    [[nodiscard]] const std::vector<TopLevelWindow>& windowsReadAfresh() override;
    /// Whether one of the parts does: a compositor knows the windows of its X server, too.
    [[nodiscard]] bool coversAllWindows() const override;
    /// The first that is listed: some window managers leave the focus on a window of their own.
    [[nodiscard]] std::optional<WindowId> activeWindow() override;
    [[nodiscard]] Subscription onWindowsChanged(std::function<void()> handler) override;
    [[nodiscard]] Subscription onActiveWindowChanged(std::function<void()> handler) override;
    bool requestClose(WindowId window, ProcessId process) override;
    [[nodiscard]] std::shared_ptr<const ImagePixels> icon(WindowId window) override;
    [[nodiscard]] std::vector<ProcessId> displayProcesses() override;
    [[nodiscard]] std::vector<ProcessId> trayIconProcesses() override;
    void flush() override;

  private:
    using List = const std::vector<TopLevelWindow>& (WindowSystem::*)();
    using Listen = Subscription (WindowSystem::*)(std::function<void()>);

    [[nodiscard]] const std::vector<TopLevelWindow>& join(List list);
    [[nodiscard]] std::vector<ProcessId>
        joinProcesses(std::vector<ProcessId> (WindowSystem::*list)());
    [[nodiscard]] Subscription listen(Listen kind, const std::function<void()>& handler);
    /// The part of a window and its number there; null if no part has it.
    [[nodiscard]] std::pair<WindowSystem*, WindowId> find(WindowId window) const;

    std::vector<WindowSystem*> parts_;
    std::vector<TopLevelWindow> windows_;
};

} // namespace calmora
