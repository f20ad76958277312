// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/windows/WindowSystem.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace calmora {

/// Several window systems as one: a Wayland compositor with the X server that it starts for X11
/// programs. Single answers come from the first part that has one.
///
/// A window of X11 that the compositor lists as well is listed once, as the X server knows it:
/// only there is its owner certain and can it be asked to close. Where the compositor does not say
/// which windows are X11's, one of an X11 window's class is the same unless a Wayland client may
/// own it, and is never asked by way of the compositor.
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
    /// Whether one of the parts does: a compositor knows the windows of its X server, too. False
    /// while it lists windows whose owners nobody can tell.
    [[nodiscard]] bool coversAllWindows() const override;
    /// As the parts that cover all windows know it, if there are any: an X server on a Wayland
    /// session knows only of its own. The first that is listed: some window managers leave the
    /// focus on a window of their own.
    [[nodiscard]] std::optional<WindowId> activeWindow() override;
    [[nodiscard]] std::optional<std::chrono::milliseconds> sinceInput() override;
    [[nodiscard]] Subscription onWindowsChanged(std::function<void()> handler) override;
    [[nodiscard]] Subscription onActiveWindowChanged(std::function<void()> handler) override;
    bool requestClose(WindowId window, ProcessId process) override;
    /// A window of X11 by way of the compositor, where that lists it as well: X servers of Wayland
    /// sessions cannot do it.
    bool activate(WindowId window) override;
    void ping(WindowId window) override;
    [[nodiscard]] bool owesAnswer(WindowId window) override;
    [[nodiscard]] std::shared_ptr<const ImagePixels> icon(WindowId window) override;
    [[nodiscard]] std::vector<ProcessId> displayProcesses() override;
    [[nodiscard]] std::vector<ProcessId> trayIconProcesses() override;
    void flush() override;

  private:
    using List = const std::vector<TopLevelWindow>& (WindowSystem::*)();
    using Listen = Subscription (WindowSystem::*)(std::function<void()>);

    [[nodiscard]] const std::vector<TopLevelWindow>& join(List list);

    /// What is known of the windows of X servers.
    struct X11Windows {
        /// By the server's own numbers.
        std::map<std::uint32_t, WindowId> ids;
        /// Both parts of WM_CLASS: compositors show either as the application id.
        std::set<std::string> classes;
    };

    void dropDoubles(const X11Windows& x11Windows);
    [[nodiscard]] std::vector<ProcessId>
        joinProcesses(std::vector<ProcessId> (WindowSystem::*list)());
    [[nodiscard]] Subscription listen(Listen kind, const std::function<void()>& handler);
    /// The part of a window and its number there; null if no part has it.
    [[nodiscard]] std::pair<WindowSystem*, WindowId> find(WindowId window) const;

    std::vector<WindowSystem*> parts_;
    std::vector<TopLevelWindow> windows_;
    /// The windows that were left out, by the ids that they would have had, with the windows of X11
    /// that they are; 0 for one of several.
    std::map<WindowId, WindowId> doubles_;
    bool hasUnknownOwners_ = false;
};

} // namespace calmora
