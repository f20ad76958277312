// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <functional>

namespace calmora {

/// A method call with its arguments.
[[nodiscard]] QDBusMessage methodCall(const QString& service, const QString& path,
                                      const QString& interface, const QString& method,
                                      const QVariantList& arguments = {});

/// A call to the bus itself (org.freedesktop.DBus).
[[nodiscard]] QDBusMessage busCall(const QString& method, const QVariantList& arguments = {});

/// A call for the value of a property (org.freedesktop.DBus.Properties.Get).
[[nodiscard]] QDBusMessage propertyCall(const QString& service, const QString& path,
                                        const QString& interface, const QString& property);

/// Sends a method call and passes its answer, which may be an error, to `done` from the main loop.
/// Never waits. Nothing is called once `context` is gone.
void callAsync(const QDBusConnection& connection, const QDBusMessage& call, QObject& context,
               std::function<void(const QDBusMessage&)> done);

/// Passes one signal of the bus to a function for as long as this object lives.
class BusSignal : public QObject {
    Q_OBJECT

  public:
    struct Match {
        QString path;
        QString interface;
        QString name;
        /// Wanted values of the first arguments.
        QStringList arguments = {};
        /// The sender; empty means anyone.
        QString service = {};
    };

    BusSignal(QDBusConnection connection, const Match& match,
              std::function<void(const QDBusMessage&)> handler);

  private Q_SLOTS:

    void receive(const QDBusMessage& message) { handler_(message); }

  private:
    std::function<void(const QDBusMessage&)> handler_;
};

} // namespace calmora
