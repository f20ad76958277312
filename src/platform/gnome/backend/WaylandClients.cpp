// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/WaylandClients.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/gnome/StandIns.h"
#include "platform/wayland/SocketClients.h"

namespace calmora {
namespace {

constexpr std::chrono::seconds lifetime{2};
/// The bus answers at once.
constexpr int answerMilliseconds = 200;

} // namespace

WaylandClients::WaylandClients(QDBusConnection connection, std::string socket,
                               std::function<const DesktopEntryIndex&()> installed)
    : connection_(std::move(connection)), socket_(std::move(socket)),
      installed_(std::move(installed)) {}

const std::vector<ShellWindow>& WaylandClients::read(bool isAfresh) {
    const auto now = std::chrono::steady_clock::now();
    if (isAfresh || !readAt_ || now - *readAt_ > lifetime) {
        readAt_ = now;
        standIns_ = standIns(socketClients(socket_, reader_), installed_(),
                             [this](const std::string& name, ProcessId process) {
                                 return ownedName(name, process);
                             });
    }
    return standIns_;
}

std::string WaylandClients::ownedName(const std::string& name, ProcessId process) const {
    const auto ask = [this](const char* method, const QString& argument) {
        return connection_.call(busCall(method, {argument}), QDBus::Block, answerMilliseconds);
    };
    const auto owner = readArgument<QString>(ask("GetNameOwner", QString::fromStdString(name)));
    if (!owner || readArgument<uint>(ask("GetConnectionUnixProcessID", *owner)) !=
                      static_cast<uint>(process)) {
        return {};
    }
    return owner->toStdString();
}

} // namespace calmora
