// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"
#include "platform/qt/window/PopoverPlacement.h"

#include <Qt>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QRect;
class QWidget;
class QWindow;

namespace calmora {

/// How the user left a transient window.
enum class Leaving {
    /// A mouse button went down outside the program's windows.
    pressedOutside,
    /// Another window got the focus.
    turnedAway,
    /// Another program's window moved and may lie above now. Reported at most every 50 ms.
    covered,
};

/// The keyboard focus of one transient window. Its end gives the focus back to the window that had
/// it before, if both still exist and the focus has not moved.
class FocusGrab {
  public:
    virtual ~FocusGrab() = default;

    /// Takes the focus again, as after a click on the window.
    virtual void renew() = 0;

    /// Checks whether the focus is still here, as after an alert.
    virtual void check() = 0;
};

/// Where a popover can be.
struct PopoverSurroundings {
    /// Absent where the icon's place is not known.
    std::optional<Rect> icon;
    /// First the one for a popover whose icon is not known; empty where there is no screen.
    std::vector<ScreenArea> screens;
};

/// What transient windows need from the window system beyond Qt.
class TransientWindows {
  public:
    virtual ~TransientWindows() = default;

    /// Flags of a window that takes clicks with any modifier held.
    [[nodiscard]] virtual Qt::WindowFlags transientFlags() const = 0;

    /// Finds out where the popover can be, right before it is shown. `icon` is what the status item
    /// knows; the window system may know better. By default: that, and Qt's screens.
    [[nodiscard]] virtual PopoverSurroundings popoverSurroundings(std::optional<Rect> icon);

    /// Called right before a window is shown. `inner` is what it shows without its shadow, within
    /// the window, in device-independent pixels.
    virtual void prepare(QWidget& /*window*/, const QRect& /*inner*/) {}

    /// Whether windows may be translucent.
    [[nodiscard]] virtual bool isComposited() = 0;

    /// Lets the pointer through outside of `inner`, given in device pixels within the window.
    virtual void setInputArea(QWindow& window, const QRect& inner) = 0;

    /// Gives the focus to `window`, which is on screen, and calls `onLeft` whenever the user leaves
    /// it. `isAlertOpen` is called whenever the focus moves: it may go to an alert.
    [[nodiscard]] virtual std::unique_ptr<FocusGrab>
    grabFocus(QWindow& window, std::function<bool()> isAlertOpen,
              std::function<void(Leaving)> onLeft) = 0;

    /// The modifiers that are down now; absent where only events have them.
    [[nodiscard]] virtual std::optional<ModifierFlags> modifiers() = 0;

    /// The current time of QInputEvent::timestamp(); absent where it cannot be asked.
    [[nodiscard]] virtual std::optional<std::uint32_t> eventTime() = 0;
};

} // namespace calmora
