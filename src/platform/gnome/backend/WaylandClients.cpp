// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/WaylandClients.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/linux/xdg/DesktopEntryIndex.h"
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
        standIns_ = standIns(socketClients(socket_, reader_), installed_(), ownedNames());
    }
    return standIns_;
}

std::vector<OwnedName> WaylandClients::ownedNames() const {
    const auto ask = [this](const char* method, const QVariantList& arguments) {
        return connection_.call(busCall(method, arguments), QDBus::Block, answerMilliseconds);
    };
    std::vector<OwnedName> result;
    const QStringList all = readArgument<QStringList>(ask("ListNames", {})).value_or(QStringList());
    for (const DesktopEntry& entry : installed_().entries()) {
        const QString name = QString::fromStdString(entry.id);
        if (!entry.isVisible || !all.contains(name)) {
            continue;
        }
        const auto owner = readArgument<QString>(ask("GetNameOwner", {name}));
        const auto process =
            owner ? readArgument<uint>(ask("GetConnectionUnixProcessID", {*owner})) : std::nullopt;
        if (process) {
            result.push_back({entry.id, owner->toStdString(), static_cast<ProcessId>(*process)});
        }
    }
    return result;
}

} // namespace calmora
