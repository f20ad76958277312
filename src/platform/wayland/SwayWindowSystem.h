// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/windows/ListedWindows.h"
#include "platform/linux/windows/OwnerProcess.h"
#include "platform/linux/windows/OwnerWatch.h"
#include "platform/linux/windows/WindowSystem.h"
#include "platform/wayland/SwayIpc.h"
#include "platform/wayland/SwayTree.h"
#include "support/Subscription.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace calmora {

class EventPoll;

/// The windows of a sway session, over its socket. Listens to sway only while someone listens
/// here.
///
/// X11 windows are listed with their X ids and without an owner, which sway knows only from their
/// own word, and are never asked to close: sway kills the client of one that cannot be asked. The
/// X server knows better, see CompositeWindowSystem.
/// Source: sway-ipc(7).
class SwayWindowSystem final : public WindowSystem {
  public:
    /// `socket` is the path in SWAYSOCK. Not alive where nobody answers there in time. `events`
    /// must outlive the window system. No answer is waited for longer than `timeout`; after a
    /// request that got none, sway is given that time ten times over before the next one.
    SwayWindowSystem(EventPoll& events, std::string socket,
                     std::chrono::milliseconds timeout = std::chrono::seconds(1),
                     OwnerLookup lookUp = ownersFromKernel());
    SwayWindowSystem(const SwayWindowSystem&) = delete;
    SwayWindowSystem& operator=(const SwayWindowSystem&) = delete;
    ~SwayWindowSystem() override = default;

    [[nodiscard]] bool isAlive() const override { return isAlive_; }

    [[nodiscard]] const std::vector<TopLevelWindow>& windows() override;
    [[nodiscard]] const std::vector<TopLevelWindow>& windowsReadAfresh() override;
    /// False while sway does not answer.
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

    [[nodiscard]] std::vector<ProcessId> displayProcesses() override;

    [[nodiscard]] std::vector<ProcessId> trayIconProcesses() override { return {}; }

    void flush() override {}

  private:
    [[nodiscard]] std::optional<std::string> request(SwayMessageType type,
                                                     const std::string& payload = {});
    [[nodiscard]] std::optional<std::string> request(SwayIpc& connection, SwayMessageType type,
                                                     const std::string& payload);
    [[nodiscard]] bool isPaused() const;
    void pause();
    void readable();
    void handleEvents();
    void listenersChanged();
    void listen();
    void update();
    bool readTree();
    [[nodiscard]] TopLevelWindow windowOf(const SwayView& view);
    void end();

    EventPoll& events_;
    std::string socket_;
    std::chrono::milliseconds timeout_;
    OwnerLookup lookUp_;
    std::optional<ProcessId> compositor_;
    bool isAlive_ = true;
    /// No request before this time, after one that got no answer.
    std::optional<std::chrono::steady_clock::time_point> pausedUntil_;

    ListedWindows listed_;
    /// Absent while nobody listens.
    std::optional<SwayIpc> stream_;
    Subscription watch_;
    Subscription notifying_;

    std::vector<SwayView> views_;
    /// When each view was first seen, as OwnerProcess::startTime counts.
    std::map<WindowId, std::uint64_t> firstSeen_;
    OwnerWatch owners_;
    /// The newest view when a process was last asked to close one.
    std::map<ProcessId, WindowId> newestAsked_;

    bool isStale_ = true;
};

} // namespace calmora
