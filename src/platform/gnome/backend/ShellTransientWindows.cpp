// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/ShellTransientWindows.h"

#include "platform/gnome/backend/ShellLink.h"
#include "platform/x11/backend/X11FrameExtents.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <memory>
#include <utility>

namespace calmora {
namespace {

/// Adds what the shell tells to what Qt sees: the window may never have got the focus.
class ShellFocusGrab final : public FocusGrab {
  public:
    ShellFocusGrab(ShellLink& link, QWindow& window, std::function<bool()> isAlertOpen,
                   std::function<void(Leaving)> onLeft)
        : link_(link), focus_(link.focus()), isAlertOpen_(std::move(isAlertOpen)),
          onLeft_(std::move(onLeft)),
          managed_(ManagedTransientWindows().grabFocus(window, isAlertOpen_,
                                                       [this](Leaving how) { left(how); })) {
        pressed_ = link_.onPressedOutside([this] { left(Leaving::turnedAway); });
        moved_ = link_.onWindowsChanged([this] { focusMoved(); });
    }

    void renew() override { managed_->renew(); }

    void check() override { managed_->check(); }

  private:
    void focusMoved() {
        const auto& windows = link_.windows();
        const auto focus = std::ranges::find(windows, link_.focus(), &ShellWindow::id);
        if (std::exchange(focus_, link_.focus()) != link_.focus() && focus != windows.end() &&
            focus->process != QCoreApplication::applicationPid()) {
            left(Leaving::turnedAway);
        }
    }

    void left(Leaving how) {
        if (isAlertOpen_() || !onLeft_) {
            return;
        }
        // It may end this object, which is about to be left, or let the focus be elsewhere.
        QTimer::singleShot(0, qApp, [onLeft = onLeft_, how, alive = std::weak_ptr(alive_)] {
            if (!alive.expired()) {
                onLeft(how);
            }
        });
    }

    ShellLink& link_;
    std::uint64_t focus_ = 0;
    std::function<bool()> isAlertOpen_;
    std::function<void(Leaving)> onLeft_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::unique_ptr<FocusGrab> managed_;
    Subscription pressed_;
    Subscription moved_;
};

} // namespace

void ShellTransientWindows::prepare(QWidget& window, const QRect& inner) {
    if (QGuiApplication::platformName() != "xcb") {
        return;
    }
    const auto id = window.winId();
    QWindow& handle = *window.windowHandle();
    if (window.isModal()) { // An alert, which has to lie above the popover.
        handle.setTransientParent(popover_ && popover_->isVisible() ? popover_ : nullptr);
    } else {
        popover_ = &handle;
        link_.setPopover(id);
    }
    const qreal scale = handle.devicePixelRatio();
    setInputArea(handle, QRectF(inner.topLeft() * scale, inner.size() * scale).toAlignedRect());
}

void ShellTransientWindows::setInputArea(QWindow& window, const QRect& inner) {
    setFrameExtents(window, inner);
}

std::unique_ptr<FocusGrab> ShellTransientWindows::grabFocus(QWindow& window,
                                                            std::function<bool()> isAlertOpen,
                                                            std::function<void(Leaving)> onLeft) {
    return std::make_unique<ShellFocusGrab>(link_, window, std::move(isAlertOpen),
                                            std::move(onLeft));
}

} // namespace calmora
