#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "KeyboardShortcuts/ShortcutRecorder.h"
#include "platform/NotificationCenter.h"
#include "platform/linux/desktop_shortcuts/DesktopShortcuts.h"
#include "platform/linux/hotkeys/X11HotKeys.h"
#include "platform/linux/hotkeys/X11Keyboard.h"
#include "platform/linux/hotkeys/X11KeyboardLayout.h"
#include "platform/qt/AlertSession.h"
#include "platform/qt/QtLocalizedStrings.h"
#include "platform/qt/menus/QtMenuTracking.h"

#include <QDBusConnection>

namespace calmora {

class EventPoll;
class Text;

/// The shortcut module with the keyboard below it, in the order of lifetimes. Takes no key before
/// a shortcut is registered.
class GlobalShortcuts {
  public:
    /// Everything given must outlive this object. `programStrings` names the items of the
    /// program's menu.
    GlobalShortcuts(EventPoll& events, const QDBusConnection& sessionBus, UserDefaults& defaults,
                    Text& text, const LocalizedStrings& programStrings, AlertSession& alertSession);
    GlobalShortcuts(const GlobalShortcuts&) = delete;
    GlobalShortcuts& operator=(const GlobalShortcuts&) = delete;

    [[nodiscard]] KeyboardShortcuts& shortcuts() { return shortcuts_; }

    /// What the recorders meet.
    [[nodiscard]] const RecorderEnvironment& recorders() const { return recorders_; }

    /// A panel has opened or closed its drawing of the program's menu.
    void setPanelMenuOpen(bool isOpen) { menus_.setPanelMenuOpen(isOpen); }

    /// Forgets the presses that were made up to now and have not acted yet.
    void discardKeyPresses() { keyboard_.discardKeyPresses(); }

  private:
    NotificationCenter notifications_;
    QtLocalizedStrings strings_{QLocale(), keyboardShortcutsCatalogue()};
    X11Keyboard keyboard_;
    X11HotKeys hotKeys_;
    X11KeyboardLayout layout_;
    DesktopShortcuts desktop_;
    KeyboardShortcuts shortcuts_;
    RecorderEnvironment recorders_;
    QtMenuTracking menus_;
    Subscription alertEnds_;
};

} // namespace calmora
