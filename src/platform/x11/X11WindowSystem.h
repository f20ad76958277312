// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/EventPoll.h"
#include "platform/linux/windows/OwnerProcess.h"
#include "platform/linux/windows/OwnerWatch.h"
#include "platform/linux/windows/WindowSystem.h"
#include "platform/linux/xdg/BaseDirectories.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Pings.h"
#include "platform/x11/X11Sightings.h"
#include "platform/x11/X11WindowReader.h"
#include "support/Signal.h"

#include <cstdlib>
#include <map>
#include <string>

namespace calmora {

/// The windows of an X server, by EWMH if the window manager supports it, else by ICCCM. Selects
/// events only while there are listeners. Sources: EWMH 1.5, ICCCM 2.0, X-Resource extension 1.2,
/// XEMBED.
class X11WindowSystem final : public WindowSystem {
  public:
    /// Connects to `display`; empty means $DISPLAY. On failure isAlive() is false from the start.
    /// `events` must outlive this object. `environment` reads the session's variables.
    explicit X11WindowSystem(EventPoll& events, const std::string& display = {},
                             EnvironmentReader environment = std::getenv,
                             OwnerLookup lookUp = ownersFromKernel());
    X11WindowSystem(const X11WindowSystem&) = delete;
    X11WindowSystem& operator=(const X11WindowSystem&) = delete;
    ~X11WindowSystem() override = default;

    [[nodiscard]] bool isAlive() const override { return isAlive_; }

    [[nodiscard]] std::string displayName() const override { return displayName_; }

    [[nodiscard]] const std::vector<TopLevelWindow>& windows() override;
    [[nodiscard]] const std::vector<TopLevelWindow>& windowsReadAfresh() override;
    [[nodiscard]] bool coversAllWindows() const override;
    [[nodiscard]] std::optional<WindowId> activeWindow() override;
    /// Absent in a Wayland session, where the server sees the input of X11 programs alone.
    /// Source: MIT-SCREEN-SAVER extension.
    [[nodiscard]] std::optional<std::chrono::milliseconds> sinceInput() override;
    [[nodiscard]] Subscription onWindowsChanged(std::function<void()> handler) override;
    [[nodiscard]] Subscription onActiveWindowChanged(std::function<void()> handler) override;
    bool requestClose(WindowId window, ProcessId process) override;
    bool activate(WindowId window) override;

    void ping(WindowId window) override { pings_.ping(static_cast<xcb_window_t>(window)); }

    [[nodiscard]] bool owesAnswer(WindowId window) override {
        return pings_.owesAnswer(static_cast<xcb_window_t>(window));
    }

    [[nodiscard]] std::shared_ptr<const ImagePixels> icon(WindowId window) override;
    [[nodiscard]] std::vector<ProcessId> displayProcesses() override;
    [[nodiscard]] std::vector<ProcessId> trayIconProcesses() override;
    void flush() override;

  private:
    struct Known {
        /// Absent until read, and for a window that is gone.
        std::optional<TopLevelWindow> facts;
        /// Absent until requested.
        std::optional<std::shared_ptr<const ImagePixels>> icon;
        bool isStale = true;
    };

    void readable();
    void handleEvents();
    void update();
    void updateList();
    void updateFacts();
    void forgetFacts();
    void forgetEverything();
    void forgetGone();
    void forgetOwnersThatEnded();
    void handle(const xcb_generic_event_t& event);
    void handleProperty(const xcb_property_notify_event_t& event);
    void listenersChanged();
    void selectEvents();
    void settle();
    void tell();
    void checkConnection();
    [[nodiscard]] std::optional<WindowId> focusedWindow() const;

    EventPoll& events_;
    EnvironmentReader environment_;
    X11Connection connection_;
    X11Sightings sightings_;
    X11WindowReader reader_;
    X11Pings pings_;
    std::string displayName_;
    bool isAlive_;
    Signal<> windowsChanged_;
    Signal<> activeWindowChanged_;
    Subscription watch_;
    Subscription telling_;

    std::vector<xcb_window_t> order_;
    std::map<xcb_window_t, Known> known_;
    std::vector<TopLevelWindow> windows_;
    OwnerWatch owners_;
    /// Processes of the manager and the manager selections; absent until requested.
    std::optional<std::vector<ProcessId>> managerProcesses_;
    /// The EWMH check window; none without such a manager.
    xcb_window_t manager_ = XCB_NONE;

    // What is selected on the server.
    bool isTracking_ = false;
    std::uint32_t rootMask_ = 0;
    std::uint32_t windowMask_ = 0;
    xcb_window_t watchedManager_ = XCB_NONE;

    bool isListStale_ = true;
    /// windowMask_ is not yet selected on the known windows.
    bool isMaskStale_ = false;
    bool areFactsStale_ = true;
    bool windowsDiffer_ = false;
    bool activeDiffers_ = false;
};

} // namespace calmora
