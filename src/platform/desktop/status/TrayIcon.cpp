// SPDX-License-Identifier: MIT
#include "platform/desktop/status/TrayIcon.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <cstddef>
#include <utility>

namespace calmora {
namespace {

/// Long enough for a tray to paint itself around the icon.
constexpr std::chrono::milliseconds settleTime{100};

} // namespace

TrayIcon::TrayIcon(const QString& title, std::function<void(StatusEvent)> onClick)
    : onClick_(std::move(onClick)),
      color_(glyphColorOn(QApplication::palette().color(QPalette::Window))) {
    icon_.setToolTip(title);
    qApp->installEventFilter(this);
    for (QTimer& look : looks_) {
        look.setSingleShot(true);
        connect(&look, &QTimer::timeout, this, &TrayIcon::adaptColor);
    }
    connect(&icon_, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                switch (reason) {
                case QSystemTrayIcon::Trigger:
                case QSystemTrayIcon::DoubleClick:
                    onClick_(StatusEvent::leftMouseUp);
                    break;
                case QSystemTrayIcon::Context:
                    onClick_(StatusEvent::rightMouseUp);
                    break;
                case QSystemTrayIcon::MiddleClick:
                case QSystemTrayIcon::Unknown:
                    break;
                }
            });
}

void TrayIcon::setGlyph(const std::optional<Image>& glyph) {
    glyph_ = glyph;
    draw();
    icon_.show();
    lookAgain();
}

void TrayIcon::lookAgain() {
    for (std::size_t index = 0; index < looks_.size(); ++index) {
        looks_[index].start(latePaintings[index]);
    }
}

std::optional<Rect> TrayIcon::geometry() const {
    const QRect place = icon_.geometry();
    // Before a tray has taken its window, Qt places the icon in the screen's corner.
    if (!painted_ || place.isEmpty()) {
        return std::nullopt;
    }
    return Rect{place.x(), place.y(), place.width(), place.height()};
}

bool TrayIcon::eventFilter(QObject* watched, QEvent* event) {
    // Qt does not report where its icon is, but its window in the tray gets paint events.
    if (event->type() == QEvent::Paint && !isAdapting_ && watched->isWidgetType() &&
        watched->inherits("QSystemTrayIconSys")) {
        if (painted_ != watched) {
            painted_ = watched;
            lookAgain(); // Another tray, or the first one.
        }
        isAdapting_ = true;
        QTimer::singleShot(settleTime, this, [this] {
            adaptColor();
            isAdapting_ = false;
        });
    }
    return false;
}

void TrayIcon::draw() {
    QIcon icon = glyph_ ? glyphIcon(*glyph_, color_) : QIcon();
    if (icon.isNull()) {
        // Qt shows no icon without a picture; an empty one can still be clicked.
        QPixmap empty(22, 22);
        empty.fill(Qt::transparent);
        icon.addPixmap(empty);
    }
    icon_.setIcon(icon);
}

void TrayIcon::adaptColor() {
    const QRect place = icon_.geometry();
    QScreen* screen = QApplication::screenAt(place.center());
    if (place.isEmpty() || !screen) {
        return;
    }
    const QPoint origin = place.topLeft() - screen->geometry().topLeft();
    const QImage seen =
        screen->grabWindow(0, origin.x(), origin.y(), place.width(), place.height()).toImage();
    const QColor background = backgroundOf(seen);
    if (background.isValid() && glyphColorOn(background) != color_) {
        color_ = glyphColorOn(background);
        draw();
    }
}

} // namespace calmora
