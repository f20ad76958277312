#pragma once

#include "platform/ProcessId.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <map>

namespace calmora {

/// Who owns certain names of the bus, kept current by the bus's own notices about these names
/// alone: what others do on the bus does not wake us. Main thread.
/// Source: dbus.freedesktop.org, "Message Bus Messages".
class BusNames {
  public:
    struct Owner {
        /// The owner's unique name, such as ":1.42".
        QString uniqueName;
        ProcessId process = 0;
    };

    /// Follows each of `patterns`: a name, or with a '*' at its end the name without it and
    /// everything below ("org.example*" takes org.example and org.example.One). `onChanged` is
    /// told from the main loop after each change of owners().
    BusNames(const QDBusConnection& connection, const QStringList& patterns,
             std::function<void()> onChanged);

    /// The names that have an owner whose process is known.
    [[nodiscard]] const std::map<QString, Owner>& owners() const { return owners_; }

    /// Follows one more name, unique names included.
    void follow(const QString& name);

    /// Follows it no longer.
    void unfollow(const QString& name);

  private:
    void lookUp(const QString& name);
    void setOwner(const QString& name, const QString& uniqueName);

    QDBusConnection connection_;
    std::function<void()> onChanged_;
    std::map<QString, Owner> owners_;
    /// Counts the changes of each name, so that a late answer about an earlier owner is dropped.
    std::map<QString, std::uint64_t> changes_;
    QDBusServiceWatcher watcher_;
};

} // namespace calmora
