#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

namespace calmora {

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
