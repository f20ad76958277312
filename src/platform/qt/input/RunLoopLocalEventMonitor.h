// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"

#include <QObject>

#include <cstdint>
#include <functional>

namespace calmora {

class NotificationCenter;

/// Posts when the program's menus open and close, those that Qt shows (menus and the lists of
/// combo boxes) and the one that a panel draws. While one of Qt's is open, consumes the keys that
/// mean a global shortcut, and Alt and Super, at which a menu would close.
class RunLoopLocalEventMonitor final : public QObject {
  public:
    /// Whether a key, as the window system numbers it, is a global shortcut with these modifiers.
    using IsHotKey = std::function<bool(std::uint32_t nativeKey, ModifierFlags modifiers)>;

    /// `notifications` must outlive the monitor. Needs the QApplication.
    RunLoopLocalEventMonitor(NotificationCenter& notifications, IsHotKey isHotKey);

    /// The panel has opened or closed its drawing of our menu; a vanished panel closes it.
    void setPanelMenuOpen(bool isOpen);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void update();

    NotificationCenter& notifications_;
    IsHotKey isHotKey_;
    int openPopups_ = 0;
    bool isPanelMenuOpen_ = false;
    bool isTracking_ = false;
};

} // namespace calmora
