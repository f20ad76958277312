#include "platform/desktop/dbus/BusSignal.h"

#include <utility>

namespace calmora {

BusSignal::BusSignal(const QDBusConnection& connection, const Match& match,
                     std::function<void(const QDBusMessage&)> handler)
    : handler_(std::move(handler)) {
    QDBusConnection bus = connection;
    bus.connect({}, match.path, match.interface, match.name, match.arguments, {}, this,
                SLOT(receive(QDBusMessage)));
}

void BusSignal::receive(const QDBusMessage& message) {
    handler_(message);
}

} // namespace calmora
