// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/window/TransientWindows.h"
#include "platform/x11/backend/X11Input.h"

#include <QDeadlineTimer>
#include <QObject>

#include <optional>
#include <set>

namespace calmora {

/// The input focus of an override-redirect window. Watches raw button presses, the focus and
/// windows that appear and vanish only while it lives.
/// Source: X11 core protocol, SetInputFocus and FocusOut.
class X11FocusGrab final : public QObject, public FocusGrab {
  public:
    /// `window` is on screen. The other arguments as TransientWindows::grabFocus() has them.
    X11FocusGrab(X11Input& input, xcb_window_t window, std::function<bool()> isAlertOpen,
                 std::function<void(Leaving)> onLeft);

    ~X11FocusGrab() override;

    void renew() override;

    void check() override { look(false); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// Whether a press was made in a window of ours, or before one that was. When the raw press
    /// arrives that window may be gone, and another one be under the pointer.
    [[nodiscard]] bool isOwnPress(xcb_timestamp_t time) const;
    void handle(const xcb_generic_event_t& event);
    /// The user pressed in the window, which was left open without the focus, perhaps: the keys
    /// that follow are meant for it.
    void takeBack();
    /// `isSettled` as in FocusMove.
    void look(bool isSettled);
    void leave(Leaving how);

    X11Input& input_;
    xcb_window_t window_;
    std::function<bool()> isAlertOpen_;
    std::function<void(Leaving)> onLeft_;
    /// Gets the focus back.
    xcb_window_t former_;
    /// When the press was made that ends the grab.
    xcb_timestamp_t leftAt_ = XCB_CURRENT_TIME;
    /// Top-level windows that appeared meanwhile.
    std::set<xcb_window_t> appeared_;
    /// Those that appeared after the user acted, perhaps a list of windows to switch to: nobody
    /// moves the focus because they vanish.
    std::set<xcb_window_t> ofUserAct_;
    /// A keyboard grab since a window last vanished: a combination of the window manager.
    bool userActed_ = false;
    /// Runs for a while after a window of another program has vanished.
    QDeadlineTimer settling_{0};
    bool isCheckDue_ = false;
    bool isCoverDue_ = false;
    /// When a mouse button last went down in a window of ours.
    std::optional<xcb_timestamp_t> ownPress_;
    Subscription screen_;
    Subscription events_;
};

} // namespace calmora
