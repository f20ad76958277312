#include "platform/desktop/dbus/BusSignal.h"

#include <utility>

namespace calmora {

BusSignal::BusSignal(QDBusConnection connection, const Match& match,
                     std::function<void(const QDBusMessage&)> handler)
    : handler_(std::move(handler)) {
    connection.connect(match.service, match.path, match.interface, match.name, match.arguments, {},
                       this, SLOT(receive(QDBusMessage)));
}

} // namespace calmora
