#include "platform/qt/window/ManagedTransientWindows.h"

#include <QGuiApplication>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace calmora {

namespace {

class ManagedFocusGrab final : public FocusGrab {
  public:
    ManagedFocusGrab(QWindow& window, std::function<bool()> isAlertOpen,
                     std::function<void(Leaving)> onLeft)
        : window_(&window), isAlertOpen_(std::move(isAlertOpen)), onLeft_(std::move(onLeft)) {
        window_->requestActivate();
        QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &context_,
                         [this](QWindow* focus) {
                             if (focus == window_) {
                                 hadKeyboard_ = true;
                             } else if (hadKeyboard_) {
                                 // Between two windows of ours there is a moment with none.
                                 QTimer::singleShot(0, &context_, [this] { check(); });
                             }
                         });
        hadKeyboard_ = QGuiApplication::focusWindow() == window_;
    }

    void renew() override {
        if (window_) {
            window_->requestActivate();
        }
    }

    void check() override {
        if (hadKeyboard_ && QGuiApplication::focusWindow() != window_ && !isAlertOpen_()) {
            if (const auto onLeft = std::exchange(onLeft_, nullptr)) {
                onLeft(Leaving::turnedAway);
            }
        }
    }

  private:
    QPointer<QWindow> window_;
    std::function<bool()> isAlertOpen_;
    std::function<void(Leaving)> onLeft_;
    bool hadKeyboard_ = false;
    QObject context_;
};

} // namespace

Qt::WindowFlags ManagedTransientWindows::transientFlags() const {
    return Qt::Tool | Qt::FramelessWindowHint;
}

bool ManagedTransientWindows::isComposited() {
    return true;
}

void ManagedTransientWindows::setInputArea(QWindow&, const QRect&) {}

std::unique_ptr<FocusGrab> ManagedTransientWindows::grabFocus(QWindow& window,
                                                              std::function<bool()> isAlertOpen,
                                                              std::function<void(Leaving)> onLeft) {
    return std::make_unique<ManagedFocusGrab>(window, std::move(isAlertOpen), std::move(onLeft));
}

std::optional<ModifierFlags> ManagedTransientWindows::modifiers() {
    return std::nullopt;
}

std::optional<std::uint32_t> ManagedTransientWindows::eventTime() {
    return std::nullopt;
}

} // namespace calmora
