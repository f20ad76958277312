// SPDX-License-Identifier: MIT
#include "platform/wayland/kwin/KwinWindowSystem.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/protection/SocketPeers.h"
#include "platform/linux/windows/WaylandSession.h"

#include <algorithm>
#include <iterator>
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
      watcher_(kwinName, connection, QDBusServiceWatcher::WatchForOwnerChange),
      listed_([this] { QTimer::singleShot(0, &watcher_, [this] { listed_.notify(); }); }) {
    pause_.setSingleShot(true);
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

const std::vector<TopLevelWindow>& KwinWindowSystem::windows() {
    update();
    return listed_.windows();
}

const std::vector<TopLevelWindow>& KwinWindowSystem::windowsReadAfresh() {
    update();
    static_cast<void>(run(requestScript, {}));
    return listed_.windows();
}

std::optional<WindowId> KwinWindowSystem::activeWindow() {
    update();
    return listed_.activeWindow();
}

bool KwinWindowSystem::requestClose(WindowId window, ProcessId process) {
    update();
    const auto name = numbers_.name(window);
    if (!coversAllWindows() || !name || listed_.closable(window, process) == nullptr) {
        return false;
    }
    // The script compares the process again.
    return run(requestScript, {.close = *name, .process = process}).value_or(false);
}

bool KwinWindowSystem::activate(WindowId window) {
    update();
    const auto name = numbers_.name(window);
    return name && run(requestScript, {.activate = *name}).value_or(false);
}

std::vector<ProcessId> KwinWindowSystem::displayProcesses() {
    update();
    std::vector<ProcessId> result = compositor_;
    std::ranges::copy(listed_.shellProcesses(), std::back_inserter(result));
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
    numbers_.keep(report_.windows);
    std::vector<TopLevelWindow> windows;
    std::optional<WindowId> active;
    for (const KwinWindow& reported : report_.windows) {
        const TopLevelWindow& window = windows.emplace_back(windowOf(reported));
        // Popups of bars and launchers come and go.
        if (reported.id == report_.active && window.type != WindowType::other) {
            active = window.id;
        }
    }
    listed_.replace(std::move(windows), active);
    owners_.follow(listed_.owners());
}

TopLevelWindow KwinWindowSystem::windowOf(const KwinWindow& reported) const {
    TopLevelWindow window = reported.window;
    window.id = numbers_.number(reported.id);
    window.transientFor = numbers_.number(reported.parent);
    setOwner(window, reported.process, numbers_.firstSeen(reported.id), lookUp_);
    return window;
}

std::unique_ptr<WindowSystem> makeKwinWindows(const QDBusConnection& connection) {
    const std::string socket = compositorSocket();
    if (socket.empty() || !connection.isConnected()) {
        return nullptr;
    }
    auto kwin = std::make_unique<KwinWindowSystem>(connection, socket);
    return kwin->isAlive() ? std::move(kwin) : nullptr;
}

} // namespace calmora
