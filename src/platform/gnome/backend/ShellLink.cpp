// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/ShellLink.h"

#include "platform/desktop/dbus/Messages.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/protection/SocketPeers.h"

#include <QCoreApplication>
#include <QDBusPendingCall>
#include <QEvent>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace calmora {
namespace {

constexpr auto shellName = "org.gnome.Shell";
constexpr int pauseFactor = 10;

/// The only argument of a signal, passed on if it has the right type.
template <typename Value, typename Handler>
auto withArgument(Handler handler) {
    return [handler](const QDBusMessage& message) {
        if (auto value = readArgument<Value>(message)) {
            handler(*std::move(value));
        }
    };
}

} // namespace

ShellLink::ShellLink(const QDBusConnection& connection, std::string socket,
                     std::chrono::milliseconds timeout)
    : connection_(connection), socket_(std::move(socket)), timeout_(timeout),
      watcher_(service, connection, QDBusServiceWatcher::WatchForOwnerChange) {
    registerShellTypes();
    pause_.setSingleShot(true);
    QObject::connect(
        &watcher_, &QDBusServiceWatcher::serviceOwnerChanged, &watcher_,
        [this](const QString&, const QString&, const QString& owner) { ownerChanged(owner); });
    QObject::connect(&pause_, &QTimer::timeout, &watcher_, [this] { readWindows(); });
    callAsync(connection_, busCall("GetNameOwner", {service}), watcher_,
              [this](const QDBusMessage& answer) {
                  if (ownerChanges_ == 0) { // Else a signal has told something newer.
                      ownerChanged(readArgument<QString>(answer).value_or(QString()));
                  }
              });
}

std::optional<ProcessId> ShellLink::process() const {
    return isAttached() ? std::optional(process_) : std::nullopt;
}

void ShellLink::ownerChanged(const QString& owner) {
    ++ownerChanges_;
    shell_.clear();
    signals_.clear();
    pause_.stop();
    icon_.reset();
    setWindows({}, 0);
    setState(owner.isEmpty() ? State::absent : State::pending);
    if (!owner.isEmpty()) {
        checkOwner(owner);
    }
}

/// Whoever takes the name could tell us of windows that do not exist.
void ShellLink::checkOwner(const QString& owner) {
    const auto change = ownerChanges_;
    callAsync(connection_, busCall("GetNameOwner", {shellName}), watcher_,
              [this, owner, change](const QDBusMessage& shell) {
                  if (change != ownerChanges_) {
                      return;
                  }
                  if (readArgument<QString>(shell) != owner) {
                      setState(State::absent);
                      return;
                  }
                  callAsync(connection_, busCall("GetConnectionUnixProcessID", {owner}), watcher_,
                            [this, owner, change](const QDBusMessage& answer) {
                                const ProcessReader reader;
                                process_ =
                                    static_cast<ProcessId>(readArgument<uint>(answer).value_or(0));
                                if (change != ownerChanges_) {
                                    return;
                                }
                                if (socket_.empty() ||
                                    SocketPeers(reader).listener(socket_) == process_) {
                                    attach(owner);
                                } else {
                                    setState(State::absent);
                                }
                            });
              });
}

void ShellLink::attach(const QString& owner) {
    shell_ = owner;
    listenToShell();
    callAsync(connection_, message("Attach", {iconOptions()}), watcher_,
              [this, change = ownerChanges_](const QDBusMessage& answer) {
                  if (change != ownerChanges_) {
                      return;
                  }
                  if (const auto values = readArgument<QVariantMap>(answer)) {
                      attached(*values);
                  } else {
                      signals_.clear();
                      setState(State::absent);
                  }
              });
}

void ShellLink::attached(const QVariantMap& values) {
    ShellState state = shellState(values);
    icon_ = state.icon;
    setWindows(std::move(state.windows), state.focus);
    if (popover_ != 0) {
        setPopover(popover_);
    }
    if (!menu_.isEmpty()) {
        tell("SetMenu", {QVariant::fromValue(menu_)});
    }
    setState(State::attached);
}

void ShellLink::setState(State state) {
    if (std::exchange(state_, state) != state) {
        stateChanged_.emit();
    }
}

void ShellLink::listen(const char* name, std::function<void(const QDBusMessage&)> handler) {
    signals_.emplace_back(
        connection_,
        BusSignal::Match{.path = path, .interface = interfaceName, .name = name, .service = shell_},
        std::move(handler));
}

void ShellLink::listenToShell() {
    listen("WindowsChanged", withArgument<ShellWindowValues>([this](ShellWindowValues values) {
               setWindows(shellWindows(values), focus_);
           }));
    listen("FocusChanged",
           withArgument<qulonglong>([this](qulonglong window) { setWindows(windows_, window); }));
    listen("IconActivated", [this](const QDBusMessage& message) {
        if (const auto read = readArguments<uint, ShellRect>(message)) {
            const auto& [button, rect] = *read;
            icon_ = Rect{rect.x, rect.y, rect.width, rect.height};
            iconActivated_.emit(button);
        }
    });
    listen("MenuOpened", withArgument<bool>([this](bool isOpen) { menuOpened_.emit(isOpen); }));
    listen("MenuActivated", withArgument<uint>([this](uint id) { menuActivated_.emit(id); }));
    listen("KeyPressed", [this](const QDBusMessage& message) {
        if (const auto read = readArguments<uint, uint>(message)) {
            keyPressed_.emit(std::get<0>(*read));
        }
    });
    listen("PressedOutside", [this](const QDBusMessage& message) {
        if (message.arguments().isEmpty()) {
            pressedOutside_.emit();
        }
    });
}

void ShellLink::handleSignals() {
    if (!isAttached()) {
        return; // The answer to Attach, which is older, has not been read yet.
    }
    // Those of the windows, which come first; the others may start something.
    for (auto signal = signals_.begin(); signal != signals_.end(); ++signal) {
        QCoreApplication::sendPostedEvents(&*signal, QEvent::MetaCall);
        if (std::distance(signals_.begin(), signal) == 1) {
            break;
        }
    }
}

void ShellLink::setWindows(std::vector<ShellWindow> windows, std::uint64_t focus) {
    if (windows != windows_ || focus != focus_) {
        windows_ = std::move(windows);
        focus_ = focus;
        windowsChanged_.emit();
    }
}

const std::vector<ShellWindow>& ShellLink::windows() {
    handleSignals();
    return windows_;
}

std::uint64_t ShellLink::focus() {
    handleSignals();
    return focus_;
}

bool ShellLink::readWindows() {
    const auto read = readArguments<ShellWindowValues, qulonglong>(ask("Windows", {}));
    handleSignals(); // Older than the answer.
    if (read) {
        setWindows(shellWindows(std::get<0>(*read)), std::get<1>(*read));
    }
    return read.has_value();
}

bool ShellLink::close(std::uint64_t window) {
    const auto asked = readArgument<QList<qulonglong>>(
        ask("Close", {QVariant::fromValue(QList<qulonglong>{window})}));
    return asked && asked->contains(window);
}

bool ShellLink::raise(std::uint64_t window) {
    return readArgument<bool>(ask("Raise", {static_cast<qulonglong>(window)})).value_or(false);
}

QVariantMap ShellLink::iconOptions() const {
    return {{"icon", iconFile_}, {"title", iconTitle_}};
}

void ShellLink::setIcon(const QString& file, const QString& title) {
    iconFile_ = file;
    iconTitle_ = title;
    tell("SetIcon", {iconOptions()});
}

void ShellLink::setMenu(const QList<ShellMenuItem>& items) {
    if (std::exchange(menu_, items) != items) {
        tell("SetMenu", {QVariant::fromValue(items)});
    }
}

void ShellLink::setPopover(std::uint64_t window) {
    popover_ = window;
    tell("SetPopover", {QVariant::fromValue(qulonglong{window}), QString()});
}

std::optional<QList<uint>> ShellLink::grabKeys(const QStringList& accelerators) {
    auto ids = readArgument<QList<uint>>(ask("GrabKeys", {accelerators}));
    return ids && ids->size() == accelerators.size() ? ids : std::nullopt;
}

QDBusMessage ShellLink::message(const char* method, const QVariantList& arguments) const {
    QDBusMessage call = methodCall(shell_, path, interfaceName, method, arguments);
    call.setAutoStartService(false);
    return call;
}

QDBusMessage ShellLink::ask(const char* method, const QVariantList& arguments) {
    if (!isAnswering()) {
        return QDBusMessage::createError(QDBusError::NoReply, {});
    }
    QDBusMessage answer = connection_.call(message(method, arguments), QDBus::Block,
                                           static_cast<int>(timeout_.count()));
    if (answer.errorName() == QDBusError::errorString(QDBusError::NoReply)) {
        pause_.start(timeout_ * pauseFactor);
    }
    return answer;
}

void ShellLink::tell(const char* method, const QVariantList& arguments) {
    if (!shell_.isEmpty()) {
        connection_.asyncCall(message(method, arguments));
    }
}

Subscription ShellLink::onStateChanged(std::function<void()> handler) {
    return stateChanged_.connect(std::move(handler));
}

Subscription ShellLink::onWindowsChanged(std::function<void()> handler) {
    return windowsChanged_.connect(std::move(handler));
}

Subscription ShellLink::onIconActivated(std::function<void(uint button)> handler) {
    return iconActivated_.connect(std::move(handler));
}

Subscription ShellLink::onMenuOpened(std::function<void(bool)> handler) {
    return menuOpened_.connect(std::move(handler));
}

Subscription ShellLink::onMenuActivated(std::function<void(uint id)> handler) {
    return menuActivated_.connect(std::move(handler));
}

Subscription ShellLink::onKeyPressed(std::function<void(uint id)> handler) {
    return keyPressed_.connect(std::move(handler));
}

Subscription ShellLink::onPressedOutside(std::function<void()> handler) {
    return pressedOutside_.connect(std::move(handler));
}

std::unique_ptr<ShellLink> makeShellLink(const QDBusConnection& connection) {
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(':');
    if (!desktops.contains("GNOME") || !connection.isConnected()) {
        return nullptr;
    }
    const QString display = qEnvironmentVariable("WAYLAND_DISPLAY");
    // An absolute path stays as it is.
    const auto socket =
        std::filesystem::path(qEnvironmentVariable("XDG_RUNTIME_DIR").toStdString()) /
        display.toStdString();
    return std::make_unique<ShellLink>(connection, display.isEmpty() ? "" : socket.string());
}

} // namespace calmora
