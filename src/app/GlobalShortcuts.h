// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "KeyboardShortcuts/ShortcutRecorder.h"
#include "platform/NotificationCenter.h"
#include "platform/desktop/shortcuts/DesktopShortcuts.h"
#include "platform/qt/AlertSession.h"
#include "platform/qt/input/RunLoopLocalEventMonitor.h"

#include <QDBusConnection>

#include <vector>

namespace calmora {

struct HotKeyAction;
class LocalizedStrings;
class Text;
class WindowBackend;

/// The shortcut module and the parts it needs, in the order of lifetimes. Grabs no key before a
/// shortcut is registered.
class GlobalShortcuts {
  public:
    /// The arguments must outlive this object. `icon` is the program's.
    GlobalShortcuts(WindowBackend& backend, const QDBusConnection& sessionBus,
                    UserDefaults& defaults, Text& text, LocalizedStrings& strings,
                    AlertSession& alertSession, Image icon);
    GlobalShortcuts(const GlobalShortcuts&) = delete;
    GlobalShortcuts& operator=(const GlobalShortcuts&) = delete;
    ~GlobalShortcuts();

    [[nodiscard]] KeyboardShortcuts& shortcuts() { return shortcuts_; }

    /// What the recorders use.
    [[nodiscard]] const RecorderEnvironment& recorders() const { return recorders_; }

    /// A panel has opened or closed the status item's menu.
    void setPanelMenuOpen(bool isOpen) { menus_.setPanelMenuOpen(isOpen); }

  private:
    [[nodiscard]] std::vector<HotKeyAction> actions(const LocalizedStrings& strings) const;

    NotificationCenter notifications_;
    DesktopShortcuts desktop_;
    KeyboardShortcuts shortcuts_;
    RecorderEnvironment recorders_;
    RunLoopLocalEventMonitor menus_;
    HotKeys& hotKeys_;
    Subscription alertEnds_;
};

} // namespace calmora
