// SPDX-License-Identifier: MIT
#include "platform/qt/window/ManagedTransientWindows.h"

#include <QGuiApplication>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <utility>

namespace calmora {

namespace {

/// Long enough for a window manager to give the focus back after an alert.
constexpr std::chrono::milliseconds returnTime{300};

class ManagedFocusGrab final : public QObject, public FocusGrab {
  public:
    ManagedFocusGrab(QWindow& window, std::function<bool()> isAlertOpen,
                     std::function<void(Leaving)> onLeft)
        : window_(&window), isAlertOpen_(std::move(isAlertOpen)), onLeft_(std::move(onLeft)) {
        window_->requestActivate();
        connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow* focus) {
            alertHadFocus_ = focus != window_ && (alertHadFocus_ || isAlertOpen_());
            if (focus == window_) {
                hadFocus_ = true;
            } else if (hadFocus_) {
                // Between two windows of ours there is a moment with none.
                QTimer::singleShot(0, this, [this] { check(); });
            }
        });
        hadFocus_ = QGuiApplication::focusWindow() == window_;
    }

    void renew() override {
        if (window_) {
            window_->requestActivate();
        }
    }

    void check() override {
        if (hadFocus_ && QGuiApplication::focusWindow() != window_ && !isAlertOpen_()) {
            if (std::exchange(alertHadFocus_, false)) {
                QTimer::singleShot(returnTime, this, [this] { check(); });
                return;
            }
            // It may end this object, or let the focus be elsewhere.
            if (const auto onLeft = onLeft_) {
                onLeft(Leaving::turnedAway);
            }
        }
    }

  private:
    QPointer<QWindow> window_;
    std::function<bool()> isAlertOpen_;
    std::function<void(Leaving)> onLeft_;
    /// An alert has taken the focus, and may be about to give it back.
    bool alertHadFocus_ = false;
    bool hadFocus_ = false;
};

} // namespace

std::unique_ptr<FocusGrab> ManagedTransientWindows::grabFocus(QWindow& window,
                                                              std::function<bool()> isAlertOpen,
                                                              std::function<void(Leaving)> onLeft) {
    return std::make_unique<ManagedFocusGrab>(window, std::move(isAlertOpen), std::move(onLeft));
}

} // namespace calmora
