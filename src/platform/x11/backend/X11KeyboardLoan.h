#pragma once

#include "platform/qt/window/TransientWindows.h"
#include "platform/x11/backend/X11Input.h"

#include <QObject>

#include <chrono>
#include <optional>
#include <set>

namespace calmora {

/// The keyboard, lent on X11 to an override-redirect window. Watches raw button presses, focus and
/// the comings and goings of windows only while it lives.
/// Source: X11 core protocol, SetInputFocus and FocusOut.
class X11KeyboardLoan final : public KeyboardLoan {
  public:
    /// `borrower` is on screen. The other arguments as TransientWindows::lendKeyboard() has them.
    X11KeyboardLoan(X11Input& input, xcb_window_t borrower, std::function<bool()> isAlertOpen,
                    std::function<void(Leaving)> onLeft);

    ~X11KeyboardLoan() override;

    void renew() override;

    void check() override { look(false); }

  private:
    using Steady = std::chrono::steady_clock;

    /// Remembers when a mouse button last went down in a window of ours. By the time that the raw
    /// press arrives the window may be gone, and what is under the pointer is somebody else's.
    class OwnPresses final : public QObject {
      public:
        OwnPresses();

        /// Whether the press was made in a window of ours, or before one that was.
        [[nodiscard]] bool covers(xcb_timestamp_t time) const;

      protected:
        bool eventFilter(QObject* watched, QEvent* event) override;

      private:
        std::optional<xcb_timestamp_t> latest_;
    };

    void handle(const xcb_generic_event_t& event);
    /// `isSettled` as in FocusMove.
    void look(bool isSettled);
    void leave(Leaving how);

    X11Input& input_;
    xcb_window_t borrower_;
    std::function<bool()> isAlertOpen_;
    std::function<void(Leaving)> onLeft_;
    /// Who gets the keyboard back.
    xcb_window_t formerOwner_;
    /// When the press was made that ends the loan.
    xcb_timestamp_t leftAt_ = XCB_CURRENT_TIME;
    /// Top-level windows that appeared meanwhile.
    std::set<xcb_window_t> appeared_;
    /// A grab since a window last vanished: a combination of the window manager.
    bool userActed_ = false;
    /// When a window of another program last vanished.
    std::optional<std::chrono::steady_clock::time_point> vanishedAt_;
    bool isCheckDue_ = false;
    bool isCoverDue_ = false;
    QObject context_;
    OwnPresses ownPresses_;
    Subscription screen_;
    Subscription events_;
};

} // namespace calmora
