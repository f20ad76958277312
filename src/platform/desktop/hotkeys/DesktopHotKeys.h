// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"

#include <QDBusConnection>
#include <QString>

#include <functional>
#include <memory>

namespace calmora {

class KeyboardLayout;

/// What the hot keys of a desktop need. The layout must outlive them.
struct DesktopHotKeysSurroundings {
    QDBusConnection sessionBus;
    KeyboardLayout& layout;
    /// The program's identifier, and its name for the user.
    QString identifier;
    QString name;
    /// Whether a press may act now.
    std::function<bool()> mayAct;
};

/// The hot keys of a desktop that ties keys to actions itself; null where programs grab keys.
[[nodiscard]] std::unique_ptr<HotKeys>
makeDesktopHotKeys(const DesktopHotKeysSurroundings& surroundings);

} // namespace calmora
