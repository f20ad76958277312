// SPDX-License-Identifier: MIT
#pragma once

namespace calmora {

/// What is known when the focus has left a transient window. The former owner had it before the
/// window was shown.
struct FocusMove {
    /// The focus is still here: a grab alone also reports a loss.
    bool isStillHere = false;
    /// An alert of ours is open.
    bool isAlertOpen = false;
    /// Another window of ours has it: the settings window.
    bool isOwnerOurs = false;
    /// The new owner appeared after the transient window was shown: a dialog that asks to save.
    bool isOwnerNew = false;
    /// The former owner is still on screen.
    bool formerOwnerExists = false;
    /// A window vanished a moment ago, the former owner or not.
    bool windowVanished = false;
    /// The user pressed a combination of the window manager since a window last vanished.
    bool userActed = false;
    /// Some time has passed since the focus left: a window that vanished would be known.
    bool isSettled = false;
};

/// What a transient window does about it.
enum class FocusVerdict { stay, takeBack, waitAndSee, close };

/// Close when the user or another program turned to another window. Stay while the focus never
/// really left, or an alert of ours has it. Take it back when the window manager only moved it
/// because a window vanished, as after each quit. Some move it first and remove the frame of the
/// vanished window afterwards: so wait before closing for that reason alone.
[[nodiscard]] constexpr FocusVerdict judge(const FocusMove& move) {
    if (move.isStillHere || move.isAlertOpen) {
        return FocusVerdict::stay;
    }
    if (move.isOwnerOurs || move.isOwnerNew || move.userActed) {
        return FocusVerdict::close;
    }
    if (!move.formerOwnerExists || move.windowVanished) {
        return FocusVerdict::takeBack;
    }
    return move.isSettled ? FocusVerdict::close : FocusVerdict::waitAndSee;
}

} // namespace calmora
