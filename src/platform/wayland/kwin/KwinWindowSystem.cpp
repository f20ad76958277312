// SPDX-License-Identifier: MIT
#include "platform/wayland/kwin/KwinWindowSystem.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/protection/SocketPeers.h"
#include "platform/linux/windows/WindowOwner.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <utility>

namespace calmora {
namespace {

constexpr auto kwinName = "org.kde.KWin";
constexpr auto watchingScript = "app.calmora.Calmora.windows";
constexpr auto requestScript = "app.calmora.Calmora.request";
constexpr int pauseFactor = 10;

} // namespace

KwinWindowSystem::KwinWindowSystem(const QDBusConnection& connection, const std::string& socket,
                                   std::chrono::milliseconds timeout, OwnerLookup lookUp)
    : connection_(connection), socket_(socket), timeout_(timeout), lookUp_(std::move(lookUp)),
      scripts_(connection, [this](KwinReport report) { accept(std::move(report)); }),
      watcher_(kwinName, connection, QDBusServiceWatcher::WatchForOwnerChange) {
    for (QTimer* timer : {&notifying_, &pause_}) {
        timer->setSingleShot(true);
    }
    QObject::connect(&notifying_, &QTimer::timeout, &notifying_, [this] { notify(); });
    QObject::connect(&pause_, &QTimer::timeout, &pause_, [this] { update(); });
    QObject::connect(
        &watcher_, &QDBusServiceWatcher::serviceOwnerChanged, &watcher_,
        [this](const QString&, const QString&, const QString& newOwner) { kwinChanged(newOwner); });
    kwinChanged(
        readArgument<QString>(connection_.call(busCall("GetNameOwner", {kwinName}), QDBus::Block,
                                               static_cast<int>(timeout_.count())))
            .value_or(QString()));
    isAlive_ = !compositor_.empty();
}

KwinWindowSystem::~KwinWindowSystem() {
    if (!compositor_.empty()) {
        scripts_.unload(watchingScript, timeout_);
    }
}

Subscription KwinWindowSystem::onWindowsChanged(std::function<void()> handler) {
    return windowsChanged_.connect(std::move(handler));
}

Subscription KwinWindowSystem::onActiveWindowChanged(std::function<void()> handler) {
    return activeWindowChanged_.connect(std::move(handler));
}

const std::vector<TopLevelWindow>& KwinWindowSystem::windows() {
    update();
    return windows_;
}

const std::vector<TopLevelWindow>& KwinWindowSystem::windowsReadAfresh() {
    update();
    static_cast<void>(run(requestScript, {}));
    return windows_;
}

std::optional<WindowId> KwinWindowSystem::activeWindow() {
    update();
    return active_;
}

bool KwinWindowSystem::requestClose(WindowId window, ProcessId process) {
    update();
    const auto found = std::ranges::find(windows_, window, &TopLevelWindow::id);
    if (!coversAllWindows() || found == windows_.end() || !found->canBeAsked ||
        found->process != process) {
        return false;
    }
    const auto index = static_cast<std::size_t>(found - windows_.begin());
    // The script compares the process again.
    return run(requestScript, {.close = report_.windows[index].id, .process = process})
        .value_or(false);
}

bool KwinWindowSystem::activate(WindowId window) {
    update();
    const auto known =
        std::ranges::find(known_, window, [](const auto& entry) { return entry.second.number; });
    return known != known_.end() && run(requestScript, {.activate = known->first}).value_or(false);
}

std::vector<ProcessId> KwinWindowSystem::displayProcesses() {
    update();
    std::vector<ProcessId> result = compositor_;
    for (const TopLevelWindow& window : windows_) {
        if (window.process &&
            (window.type == WindowType::dock || window.type == WindowType::desktop)) {
            result.push_back(*window.process);
        }
    }
    return result;
}

void KwinWindowSystem::kwinChanged(const QString& uniqueName) {
    scripts_.setKwin({});
    compositor_.clear();
    pause_.stop();
    isWatching_ = false;
    accept({});
    const auto process = static_cast<ProcessId>(
        readArgument<uint>(connection_.call(busCall("GetConnectionUnixProcessID", {uniqueName}),
                                            QDBus::Block, static_cast<int>(timeout_.count())))
            .value_or(0));
    // A session within the session has its own compositor. KWin's socket may be its starter's.
    const ProcessReader reader;
    const auto listener = SocketPeers(reader).listener(socket_);
    if (process > 0 && listener && (*listener == process || *listener == reader.parent(process))) {
        compositor_ = {process, *listener};
        scripts_.setKwin(uniqueName);
        // Qt keeps back what the bus delivers until the main loop runs.
        pause_.start(0);
    }
}

std::optional<bool> KwinWindowSystem::run(const QString& script, const KwinScripts::Task& task) {
    if (compositor_.empty() || pause_.isActive()) {
        return std::nullopt;
    }
    const auto answer = scripts_.run(script, task, timeout_);
    if (!answer) {
        isWatching_ = false;
        pause_.start(timeout_ * pauseFactor);
    } else if (!task.watches) {
        scripts_.unload(script, timeout_);
    }
    return answer;
}

void KwinWindowSystem::update() {
    scripts_.handleReports();
    if (!isWatching_) {
        isWatching_ = run(watchingScript, {.watches = true}).has_value();
    }
    if (!owners_.takeEnded().empty()) {
        readWindows();
    }
}

void KwinWindowSystem::accept(KwinReport report) {
    report_ = std::move(report);
    readWindows();
}

void KwinWindowSystem::readWindows() {
    auto known = std::exchange(known_, {});
    for (const KwinWindow& window : report_.windows) {
        const auto old = known.find(window.id);
        known_[window.id] = old == known.end() ? Known{++lastNumber_, ticksNow()} : old->second;
    }
    const auto before = std::exchange(windows_, {});
    const auto activeBefore = std::exchange(active_, std::nullopt);
    std::set<ProcessId> owners;
    for (const KwinWindow& reported : report_.windows) {
        windows_.push_back(windowOf(reported));
        const TopLevelWindow& window = windows_.back();
        if (window.process) {
            owners.insert(*window.process);
        }
        // Popups of bars and launchers come and go.
        if (reported.id == report_.active && window.type != WindowType::other) {
            active_ = window.id;
        }
    }
    owners_.follow(owners);
    windowsDiffer_ = windowsDiffer_ || before != windows_;
    activeDiffers_ = activeDiffers_ || activeBefore != active_;
    if (windowsDiffer_ || activeDiffers_) {
        notifying_.start(0);
    }
}

TopLevelWindow KwinWindowSystem::windowOf(const KwinWindow& reported) {
    TopLevelWindow window = reported.window;
    const Known& known = known_.at(reported.id);
    window.id = known.number;
    if (const auto parent = known_.find(reported.parent); parent != known_.end()) {
        window.transientFor = parent->second.number;
    }
    if (reported.process > 0) {
        const auto owner =
            windowOwner({.client = reported.process, .firstSeen = known.firstSeen}, {}, lookUp_);
        window.process = owner.process;
        window.certainty = owner.certainty;
    }
    return window;
}

/// Nobody is notified from within a call of theirs.
void KwinWindowSystem::notify() {
    const bool windowsDiffer = std::exchange(windowsDiffer_, false);
    const bool activeDiffers = std::exchange(activeDiffers_, false);
    if (windowsDiffer) {
        windowsChanged_.emit();
    }
    if (activeDiffers) {
        activeWindowChanged_.emit();
    }
}

std::unique_ptr<WindowSystem> makeKwinWindows(const QDBusConnection& connection) {
    const char* display = std::getenv("WAYLAND_DISPLAY");
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    if (display == nullptr || folder == nullptr || !connection.isConnected()) {
        return nullptr;
    }
    // An absolute path stays as it is.
    const auto socket = std::filesystem::path(folder) / display;
    auto kwin = std::make_unique<KwinWindowSystem>(connection, socket);
    return kwin->isAlive() ? std::move(kwin) : nullptr;
}

} // namespace calmora
