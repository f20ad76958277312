// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/windows/ListedWindows.h"
#include "platform/linux/windows/OwnerWatch.h"
#include "platform/linux/windows/WindowSystem.h"
#include "platform/wayland/AppIdPrograms.h"
#include "platform/wayland/SocketClients.h"
#include "platform/wayland/WaylandConnection.h"
#include "support/Subscription.h"

#include <chrono>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

struct wl_registry;
struct wl_seat;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace calmora {

class EventPoll;

/// The windows of a compositor that tells of them without their processes, as labwc, wayfire and
/// river do. The processes are those among the compositor's clients whose programs fit the
/// window's application id. Where exactly one does it owns the window; where several do they are
/// candidates, and the window says no more.
///
/// Whether a window is one of X11 is not told either: it has to be part of a
/// CompositeWindowSystem, which settles that. Not every compositor tells which window is a dialog
/// of which: one that opens within half a minute of a request to close, beside the window that was
/// to close and of the same application, counts as its question to the user. Listens all the time,
/// since the protocol knows no pause. Source: wlr-foreign-toplevel-management-unstable-v1.
class ToplevelWindowSystem final : public WindowSystem {
  public:
    /// Connects to the socket at `path`. Not alive where nobody offers the protocol there within
    /// `timeout`, which limits every later wait as well. `events` must outlive it.
    ToplevelWindowSystem(EventPoll& events, std::string path, ProgramNames programs,
                         std::chrono::milliseconds timeout = std::chrono::seconds(1));
    ToplevelWindowSystem(const ToplevelWindowSystem&) = delete;
    ToplevelWindowSystem& operator=(const ToplevelWindowSystem&) = delete;
    ~ToplevelWindowSystem() override;

    [[nodiscard]] bool isAlive() const override { return isAlive_; }

    [[nodiscard]] const std::vector<TopLevelWindow>& windows() override;
    /// The same without a wait when the compositor does not answer; coversAllWindows() is false
    /// then.
    [[nodiscard]] const std::vector<TopLevelWindow>& windowsReadAfresh() override;

    [[nodiscard]] bool coversAllWindows() const override { return isAlive_ && isAnswering_; }

    [[nodiscard]] std::optional<WindowId> activeWindow() override;

    [[nodiscard]] Subscription onWindowsChanged(std::function<void()> handler) override {
        return listed_.onWindowsChanged(std::move(handler));
    }

    [[nodiscard]] Subscription onActiveWindowChanged(std::function<void()> handler) override {
        return listed_.onActiveWindowChanged(std::move(handler));
    }

    bool requestClose(WindowId window, ProcessId process) override;
    /// On the first seat.
    bool activate(WindowId window) override;

    [[nodiscard]] std::shared_ptr<const ImagePixels> icon(WindowId /*window*/) override {
        return nullptr;
    }

    [[nodiscard]] std::vector<ProcessId> displayProcesses() override;

    [[nodiscard]] std::vector<ProcessId> trayIconProcesses() override { return {}; }

    void flush() override;

  private:
    using Time = std::chrono::steady_clock::time_point;

    struct Toplevel {
        ToplevelWindowSystem* system = nullptr;
        zwlr_foreign_toplevel_handle_v1* handle = nullptr;
        WindowId id = 0;
        WindowId parent = 0;
        std::string applicationId = {};
        Time appeared = {};
        /// When it was last asked to close, and the newest toplevel then.
        Time asked = {};
        WindowId newestWhenAsked = 0;
        bool isActive = false;
        /// And not minimised.
        bool isFullScreen = false;
        /// Its first state is complete.
        bool isDone = false;
        /// Something that counts has changed since then; titles do not.
        bool hasNews = true;
    };

    struct Listeners;

    void handleEvents();
    void update();
    [[nodiscard]] TopLevelWindow windowOf(const Toplevel& toplevel) const;
    void findQuestions(std::vector<TopLevelWindow>& windows) const;
    void remove(Toplevel& toplevel);
    void end();

    EventPoll& events_;
    std::string path_;
    ProgramNames programs_;
    std::chrono::milliseconds timeout_;
    ProcessReader reader_;
    WaylandConnection connection_;
    wl_registry* registry_ = nullptr;
    zwlr_foreign_toplevel_manager_v1* manager_ = nullptr;
    /// Null until one is announced.
    wl_seat* seat_ = nullptr;
    std::list<Toplevel> toplevels_;
    WindowId lastId_ = 0;

    ListedWindows listed_;
    Subscription watch_;
    Subscription notifying_;

    /// The compositor's clients when the newest window appeared, without those that have ended.
    std::vector<SocketClient> clients_;
    OwnerWatch owners_;
    bool isAlive_ = false;
    bool isAnswering_ = false;
    bool isFinished_ = false;
    bool areClientsStale_ = true;
    bool isStale_ = true;
};

} // namespace calmora
