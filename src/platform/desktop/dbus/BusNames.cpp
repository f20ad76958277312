// SPDX-License-Identifier: MIT
#include "platform/desktop/dbus/BusNames.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

bool matches(const QString& pattern, const QString& name) {
    if (!pattern.endsWith('*')) {
        return name == pattern;
    }
    const QStringView base = QStringView(pattern).chopped(1);
    return name == base || (name.startsWith(base) && name[base.size()] == '.');
}

} // namespace

BusNames::BusNames(const QDBusConnection& connection, const QStringList& patterns,
                   std::function<void()> onChanged)
    : connection_(connection), onChanged_(std::move(onChanged)) {
    if (!connection_.isConnected()) {
        return;
    }
    watcher_.setConnection(connection_);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    watcher_.setWatchedServices(patterns);
    QObject::connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, &watcher_,
                     [this](const QString& name, const QString&, const QString& newOwner) {
                         setOwner(name, newOwner);
                     });
    if (patterns.isEmpty()) {
        return;
    }
    callAsync(
        connection_, busCall("ListNames"), watcher_, [this, patterns](const QDBusMessage& reply) {
            const QStringList names = readArgument<QStringList>(reply).value_or(QStringList());
            for (const QString& name : names) {
                if (std::ranges::any_of(
                        patterns, [&](const QString& pattern) { return matches(pattern, name); })) {
                    lookUp(name);
                }
            }
        });
}

void BusNames::setNames(const std::set<QString>& names) {
    if (!connection_.isConnected()) {
        return;
    }
    for (const QString& name : watcher_.watchedServices()) {
        if (!names.contains(name)) {
            watcher_.removeWatchedService(name);
            changes_.erase(name);
            if (owners_.erase(name) > 0) {
                onChanged_();
            }
        }
    }
    for (const QString& name : names) {
        if (!changes_.contains(name)) {
            watcher_.addWatchedService(name);
            lookUp(name);
        }
    }
}

void BusNames::lookUp(const QString& name) {
    const std::uint64_t change = changes_[name];
    callAsync(connection_, busCall("GetNameOwner", {name}), watcher_,
              [this, name, change](const QDBusMessage& reply) {
                  const auto found = changes_.find(name);
                  const auto owner = readArgument<QString>(reply);
                  if (owner && found != changes_.end() && found->second == change) {
                      setOwner(name, *owner);
                  }
              });
}

void BusNames::setOwner(const QString& name, const QString& uniqueName) {
    const std::uint64_t change = ++changes_[name];
    if (owners_.erase(name) > 0) {
        onChanged_();
    }
    if (uniqueName.isEmpty()) {
        return;
    }
    callAsync(connection_, busCall("GetConnectionUnixProcessID", {uniqueName}), watcher_,
              [this, name, uniqueName, change](const QDBusMessage& reply) {
                  const auto found = changes_.find(name);
                  const auto process =
                      static_cast<ProcessId>(readArgument<uint>(reply).value_or(0));
                  if (process <= 0 || found == changes_.end() || found->second != change) {
                      return;
                  }
                  owners_[name] = {uniqueName, process};
                  onChanged_();
              });
}

} // namespace calmora
