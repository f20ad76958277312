// SPDX-License-Identifier: MIT
#include "platform/wayland/ToplevelWindowSystem.h"

#include "platform/linux/EventPoll.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <string_view>
#include <utility>
#include <wayland-client-protocol.h>
#include <wlr-foreign-toplevel-management-unstable-v1-client.h>

namespace calmora {
namespace {

constexpr std::uint32_t wantedVersion = 3;
constexpr std::size_t longestText = 1024;
/// More windows than anybody opens; a compositor that announces more is left at that.
constexpr std::size_t mostToplevels = 4096;
/// The compositor's answer can bring objects with events of their own.
constexpr int roundTripsAtFirst = 2;
/// A program that is busy asks late; what opens still later the user has opened.
constexpr std::chrono::seconds longestThought{30};

/// Whether both may be windows of one process.
bool mayBelongTogether(const TopLevelWindow& one, const TopLevelWindow& other) {
    const auto owners = [](const TopLevelWindow& window) {
        return window.process ? std::vector{*window.process} : window.candidates;
    };
    const std::vector<ProcessId> processes = owners(one);
    return one.applicationId == other.applicationId ||
           std::ranges::any_of(owners(other), [&](ProcessId process) {
               return std::ranges::binary_search(processes, process);
           });
}

} // namespace

/// What the compositor tells, in the shape that the C library asks for.
struct ToplevelWindowSystem::Listeners {
    using Handle = zwlr_foreign_toplevel_handle_v1;

    static Toplevel& of(void* data) { return *static_cast<Toplevel*>(data); }

    static void global(void* data, wl_registry* registry, std::uint32_t name, const char* interface,
                       std::uint32_t version) {
        auto& system = *static_cast<ToplevelWindowSystem*>(data);
        const auto& wanted = zwlr_foreign_toplevel_manager_v1_interface;
        if (system.manager_ == nullptr && std::string_view(interface) == wanted.name) {
            system.manager_ = static_cast<zwlr_foreign_toplevel_manager_v1*>(
                wl_registry_bind(registry, name, &wanted, std::min(version, wantedVersion)));
            zwlr_foreign_toplevel_manager_v1_add_listener(system.manager_, &manager, data);
        } else if (system.seat_ == nullptr &&
                   std::string_view(interface) == wl_seat_interface.name) {
            system.seat_ =
                static_cast<wl_seat*>(wl_registry_bind(registry, name, &wl_seat_interface, 1));
        }
    }

    static void toplevel(void* data, zwlr_foreign_toplevel_manager_v1*, Handle* handle) {
        auto& system = *static_cast<ToplevelWindowSystem*>(data);
        if (system.toplevels_.size() >= mostToplevels) {
            zwlr_foreign_toplevel_handle_v1_destroy(handle);
            return;
        }
        Toplevel& added =
            system.toplevels_.emplace_back(Toplevel{.system = &system,
                                                    .handle = handle,
                                                    .id = ++system.lastId_,
                                                    .appeared = std::chrono::steady_clock::now()});
        zwlr_foreign_toplevel_handle_v1_add_listener(handle, &toplevelEvents, &added);
    }

    static void appId(void* data, Handle*, const char* id) {
        of(data).applicationId = std::string(id).substr(0, longestText);
        of(data).hasNews = of(data).system->areClientsStale_ = true;
    }

    static void state(void* data, Handle*, wl_array* states) {
        const auto has = [states](std::uint32_t wanted) {
            std::uint32_t value = 0;
            for (std::size_t at = 0; at + sizeof value <= states->size; at += sizeof value) {
                std::memcpy(&value, static_cast<const char*>(states->data) + at, sizeof value);
                if (value == wanted) {
                    return true;
                }
            }
            return false;
        };
        const bool isActive = has(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED);
        const bool wasActive = std::exchange(of(data).isActive, isActive);
        of(data).isFullScreen = has(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_FULLSCREEN) &&
                                !has(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_MINIMIZED);
        of(data).hasNews = of(data).hasNews || isActive != wasActive;
    }

    static void parent(void* data, Handle*, Handle* handle) {
        of(data).hasNews = true;
        of(data).parent = 0;
        for (const Toplevel& other : of(data).system->toplevels_) {
            if (handle != nullptr && other.handle == handle) {
                of(data).parent = other.id;
            }
        }
    }

    static void done(void* data, Handle*) {
        of(data).isDone = true;
        of(data).system->isStale_ =
            std::exchange(of(data).hasNews, false) || of(data).system->isStale_;
    }

    static void closed(void* data, Handle*) { of(data).system->remove(of(data)); }

    static void finished(void* data, zwlr_foreign_toplevel_manager_v1*) {
        static_cast<ToplevelWindowSystem*>(data)->isFinished_ = true;
    }

    static constexpr wl_registry_listener registryEvents{global,
                                                         [](void*, wl_registry*, std::uint32_t) {}};
    static constexpr zwlr_foreign_toplevel_manager_v1_listener manager{toplevel, finished};
    static constexpr zwlr_foreign_toplevel_handle_v1_listener toplevelEvents{
        .title = [](void*, Handle*, const char*) {},
        .app_id = appId,
        .output_enter = [](void*, Handle*, wl_output*) {},
        .output_leave = [](void*, Handle*, wl_output*) {},
        .state = state,
        .done = done,
        .closed = closed,
        .parent = parent};
};

ToplevelWindowSystem::ToplevelWindowSystem(EventPoll& events, std::string path,
                                           ProgramNames programs, std::chrono::milliseconds timeout)
    : events_(events), path_(std::move(path)), programs_(std::move(programs)), timeout_(timeout),
      connection_(path_),
      listed_([this] { notifying_ = events_.later([this] { listed_.notify(); }); }) {
    if (!connection_.isOpen()) {
        return;
    }
    registry_ = wl_display_get_registry(connection_.get());
    wl_registry_add_listener(registry_, &Listeners::registryEvents, this);
    isAnswering_ = true;
    for (int i = 0; i < roundTripsAtFirst; ++i) {
        isAnswering_ = isAnswering_ && connection_.roundTrip(timeout_);
    }
    isAlive_ = isAnswering_ && manager_ != nullptr;
    if (isAlive_) {
        watch_ = events_.watch(connection_.descriptor(), [this] {
            handleEvents();
            if (listed_.hasListeners()) {
                update();
            }
        });
    }
}

ToplevelWindowSystem::~ToplevelWindowSystem() {
    for (const Toplevel& toplevel : toplevels_) {
        zwlr_foreign_toplevel_handle_v1_destroy(toplevel.handle);
    }
    if (manager_ != nullptr) {
        zwlr_foreign_toplevel_manager_v1_destroy(manager_);
    }
    if (seat_ != nullptr) {
        wl_seat_destroy(seat_);
    }
    if (registry_ != nullptr) {
        wl_registry_destroy(registry_);
    }
}

const std::vector<TopLevelWindow>& ToplevelWindowSystem::windows() {
    handleEvents();
    update();
    return listed_.windows();
}

const std::vector<TopLevelWindow>& ToplevelWindowSystem::windowsReadAfresh() {
    // One that is late is not waited for again before it has answered.
    isAnswering_ = connection_.roundTrip(isAnswering_ ? timeout_ : std::chrono::milliseconds(0));
    isStale_ = areClientsStale_ = true;
    return windows();
}

std::optional<WindowId> ToplevelWindowSystem::activeWindow() {
    static_cast<void>(windows());
    return listed_.activeWindow();
}

bool ToplevelWindowSystem::requestClose(WindowId window, ProcessId process) {
    const std::vector<TopLevelWindow>& windows = windowsReadAfresh();
    const auto listed = std::ranges::find(windows, window, &TopLevelWindow::id);
    const auto toplevel = std::ranges::find(toplevels_, window, &Toplevel::id);
    if (!coversAllWindows() || listed == windows.end() || toplevel == toplevels_.end() ||
        listed->listedProcess() != process) {
        return false;
    }
    // What an earlier request brought up stays its question.
    if (std::ranges::find(windows, window, &TopLevelWindow::transientFor) == windows.end()) {
        toplevel->asked = std::chrono::steady_clock::now();
        toplevel->newestWhenAsked = lastId_;
    }
    zwlr_foreign_toplevel_handle_v1_close(toplevel->handle);
    return true;
}

bool ToplevelWindowSystem::activate(WindowId window) {
    handleEvents();
    const auto toplevel = std::ranges::find(toplevels_, window, &Toplevel::id);
    if (!isAlive_ || seat_ == nullptr || toplevel == toplevels_.end()) {
        return false;
    }
    zwlr_foreign_toplevel_handle_v1_unset_minimized(toplevel->handle);
    zwlr_foreign_toplevel_handle_v1_activate(toplevel->handle, seat_);
    return true;
}

std::vector<ProcessId> ToplevelWindowSystem::displayProcesses() {
    const auto compositor = isAlive_ ? connection_.server() : std::nullopt;
    return compositor ? std::vector{*compositor} : std::vector<ProcessId>();
}

void ToplevelWindowSystem::flush() {
    if (isAlive_) {
        wl_display_flush(connection_.get());
    }
}

void ToplevelWindowSystem::handleEvents() {
    if (!isAlive_) {
        return;
    }
    connection_.dispatch();
    if (isFinished_ || !connection_.isOpen()) {
        end();
    }
}

void ToplevelWindowSystem::update() {
    const std::vector<ProcessId> ended = owners_.takeEnded();
    std::erase_if(clients_, [&](const SocketClient& client) {
        return std::ranges::find(ended, client.process) != ended.end();
    });
    if (!isAlive_ || (!isStale_ && ended.empty())) {
        return;
    }
    isStale_ = false;
    if (std::exchange(areClientsStale_, false)) {
        clients_ = socketClients(path_, reader_);
        std::set<ProcessId> processes;
        for (const SocketClient& client : clients_) {
            processes.insert(client.process);
        }
        owners_.follow(processes);
    }
    std::vector<TopLevelWindow> windows;
    std::optional<WindowId> active;
    for (const Toplevel& toplevel : toplevels_) {
        if (toplevel.isDone) {
            windows.push_back(windowOf(toplevel));
            active = toplevel.isActive ? toplevel.id : active;
        }
    }
    findQuestions(windows);
    listed_.replace(std::move(windows), active);
}

TopLevelWindow ToplevelWindowSystem::windowOf(const Toplevel& toplevel) const {
    TopLevelWindow window;
    window.id = toplevel.id;
    window.mayBeX11 = true;
    window.applicationId = toplevel.applicationId;
    window.className = toplevel.applicationId;
    window.transientFor = toplevel.parent;
    window.type = toplevel.parent != 0 ? WindowType::dialog : WindowType::normal;
    window.canBeAsked = true;
    window.isFullScreen = toplevel.isFullScreen;
    window.candidates = clientsCalled(programs_(toplevel.applicationId), clients_);
    if (window.candidates.size() == 1) {
        window.process = window.candidates.front();
        window.certainty = ProcessCertainty::claimed;
        window.candidates.clear();
    }
    return window;
}

void ToplevelWindowSystem::findQuestions(std::vector<TopLevelWindow>& windows) const {
    for (const Toplevel& asked : toplevels_) {
        const auto parent = std::ranges::find(windows, asked.id, &TopLevelWindow::id);
        if (asked.newestWhenAsked == 0 || parent == windows.end()) {
            continue;
        }
        for (const Toplevel& later : toplevels_) {
            const auto window = std::ranges::find(windows, later.id, &TopLevelWindow::id);
            if (later.id > asked.newestWhenAsked && window != windows.end() &&
                window->transientFor == 0 && later.appeared - asked.asked < longestThought &&
                mayBelongTogether(*window, *parent)) {
                window->transientFor = asked.id;
                window->type = WindowType::dialog;
            }
        }
    }
}

void ToplevelWindowSystem::remove(Toplevel& toplevel) {
    isStale_ = true;
    for (Toplevel& other : toplevels_) {
        other.parent = other.parent == toplevel.id ? 0 : other.parent;
    }
    zwlr_foreign_toplevel_handle_v1_destroy(toplevel.handle);
    toplevels_.remove_if([&](const Toplevel& other) { return &other == &toplevel; });
}

void ToplevelWindowSystem::end() {
    isAlive_ = false;
    watch_.reset();
    listed_.replace({}, std::nullopt);
    listed_.changed(/*windowsDiffer=*/true, /*activeDiffers=*/true);
}

} // namespace calmora
