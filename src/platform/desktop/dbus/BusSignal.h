#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

namespace calmora {

/// Hands one signal of the bus, whoever sends it, to a function for as long as this object lives.
class BusSignal : public QObject {
    Q_OBJECT

  public:
    struct Match {
        QString path;
        QString interface;
        QString name;
        /// Wanted values of the first arguments.
        QStringList arguments;
    };

    BusSignal(const QDBusConnection& connection, const Match& match,
              std::function<void(const QDBusMessage&)> handler);

  private Q_SLOTS:
    void receive(const QDBusMessage& message);

  private:
    std::function<void(const QDBusMessage&)> handler_;
};

} // namespace calmora
