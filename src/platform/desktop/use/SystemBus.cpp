// SPDX-License-Identifier: MIT
#include "platform/desktop/use/SystemBus.h"

#include <utility>

namespace calmora {
namespace {

struct OpenBus {
    QDBusConnection connection =
        QDBusConnection::connectToBus(QDBusConnection::SystemBus, "calmora-system");

    OpenBus() = default;
    OpenBus(const OpenBus&) = delete;
    OpenBus& operator=(const OpenBus&) = delete;

    ~OpenBus() { QDBusConnection::disconnectFromBus(connection.name()); }
};

} // namespace

BusOnDemand systemBusOnDemand() {
    // Copies of the function share one connection, which has one name.
    return [known = std::make_shared<std::weak_ptr<OpenBus>>()] {
        auto open = known->lock();
        if (!open) {
            open = std::make_shared<OpenBus>();
            *known = open;
        }
        return std::shared_ptr<const QDBusConnection>(open, &open->connection);
    };
}

} // namespace calmora
