// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>

#include <functional>
#include <memory>

namespace calmora {

/// Gives a connection to a bus that is closed when nobody holds it any more. Never null; not
/// connected where there is no such bus.
using BusOnDemand = std::function<std::shared_ptr<const QDBusConnection>()>;

/// The system bus. Connecting waits for the bus.
[[nodiscard]] BusOnDemand systemBusOnDemand();

} // namespace calmora
