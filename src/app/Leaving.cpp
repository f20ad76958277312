// SPDX-License-Identifier: MIT
#include "app/Leaving.h"

#include "app/Identity.h"
#include "platform/desktop/hotkeys/KdeHotKeys.h"
#include "platform/gnome/backend/ShellExtension.h"
#include "platform/linux/xdg/AutostartLoginItem.h"
#include "platform/linux/xdg/BaseDirectories.h"

#include <QCoreApplication>

#include <thread>

namespace calmora {

std::optional<RuntimeLock> waitForLock(std::chrono::steady_clock::time_point end) {
    constexpr std::chrono::milliseconds pause{20};
    while (true) {
        RuntimeLock lock(RuntimeLock::userFolder(),
                         RuntimeLock::nameForDisplay(identity::identifier));
        if (!lock.isHeldElsewhere()) {
            return lock;
        }
        if (std::chrono::steady_clock::now() >= end) {
            return std::nullopt;
        }
        std::this_thread::sleep_for(pause);
    }
}

std::vector<std::string> withdraw(const QDBusConnection& bus) {
    std::vector<std::string> kept;
    AutostartLoginItem loginItem(BaseDirectories::fromEnvironment(), identity::identifier,
                                 QCoreApplication::applicationFilePath().toStdString());
    if (!loginItem.setEnabled(false)) {
        kept.emplace_back("the autostart entry cannot be removed");
    }
    if (!disableExtensions()) {
        kept.emplace_back("the extension for GNOME cannot be disabled");
    }
    if (!forgetKdeKeys(bus, identity::identifier)) {
        kept.emplace_back("the global shortcuts in KDE cannot be forgotten");
    }
    return kept;
}

} // namespace calmora
