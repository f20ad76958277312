#pragma once

namespace calmora {

/// What is known when the keyboard has left a transient window. Who had it before the window was
/// shown is the former owner.
struct FocusMove {
    /// The keyboard is still ours: a grab alone also tells of a loss.
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
    /// Some time has passed since the keyboard left: a window that vanished would be known.
    bool isSettled = false;
};

/// What a transient window does about it.
enum class FocusVerdict { stay, takeBack, waitAndSee, close };

/// Close when the user or another program turned to another window. Stay while the keyboard never
/// really left, or an alert of ours has it. Take it back when the window manager only moved it
/// because a window vanished, which a quit does all the time: which one it held for active is its
/// own affair. Some move it first and take the frame of the vanished window down afterwards, so
/// wait before closing for that reason alone.
[[nodiscard]] FocusVerdict judge(const FocusMove& move);

} // namespace calmora
