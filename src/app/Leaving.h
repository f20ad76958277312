// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/single_instance/RuntimeLock.h"

#include <QDBusConnection>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// Waits until no instance of this display runs, and keeps one from starting for as long as the
/// lock exists. Absent if one still runs at that time.
[[nodiscard]] std::optional<RuntimeLock> waitForLock(std::chrono::steady_clock::time_point end);

/// Takes back what the desktop does for the program while it does not run: the start at login, the
/// extension in GNOME's shell, keys that KDE's daemon remembers. The preferences stay. Returns what
/// could not be taken back, as sentences for the user.
[[nodiscard]] std::vector<std::string> withdraw(const QDBusConnection& bus);

} // namespace calmora
