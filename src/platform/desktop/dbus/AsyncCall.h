#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>

namespace calmora {

/// Sends a method call and hands its answer, which may be an error, to `done` from the main loop.
/// Never waits. Nothing is called once `context` is gone.
void callAsync(const QDBusConnection& connection, const QDBusMessage& call, QObject& context,
               std::function<void(const QDBusMessage&)> done);

/// A call to the bus itself (org.freedesktop.DBus).
[[nodiscard]] QDBusMessage busCall(const QString& method, const QVariantList& arguments = {});

} // namespace calmora
