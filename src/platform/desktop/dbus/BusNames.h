// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <map>
#include <set>

namespace calmora {

/// The owners of certain names of the bus, kept current by the bus's signals about these names
/// alone: other traffic does not wake the program. Main thread.
/// Source: dbus.freedesktop.org, "Message Bus Messages".
class BusNames {
  public:
    struct Owner {
        /// The owner's unique name, such as ":1.42".
        QString uniqueName;
        ProcessId process = 0;
    };

    /// Follows each of `patterns`: a name, or with a '*' at its end the name without it and all
    /// below it ("org.example*" matches org.example and org.example.One). `onChanged` is called
    /// from the main loop after each change of owners().
    BusNames(const QDBusConnection& connection, const QStringList& patterns,
             std::function<void()> onChanged);

    /// The names with an owner whose process is known.
    [[nodiscard]] const std::map<QString, Owner>& owners() const { return owners_; }

    /// Follows exactly these names instead; they may be unique names.
    void setNames(const std::set<QString>& names);

  private:
    void lookUp(const QString& name);
    void setOwner(const QString& name, const QString& uniqueName);

    QDBusConnection connection_;
    std::function<void()> onChanged_;
    std::map<QString, Owner> owners_;
    /// Counts the changes of each name, to drop late answers about an earlier owner.
    std::map<QString, std::uint64_t> changes_;
    QDBusServiceWatcher watcher_;
};

} // namespace calmora
