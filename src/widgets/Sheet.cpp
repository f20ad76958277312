// SPDX-License-Identifier: MIT
#include "widgets/Sheet.h"

#include "widgets/Popups.h"
#include "widgets/Theme.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOption>

namespace calmora {
namespace {

class Veil final : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        const bool isDark = Theme::of(*this).appearance() == Appearance::dark;
        QPainter(this).fillRect(rect(), QColor(0, 0, 0, isDark ? 110 : 70));
    }
};

} // namespace

Sheet::Sheet(QWidget* window, QAccessible::Role role)
    : QDialog(window, Qt::Dialog | Qt::FramelessWindowHint), ModalWindow(role) {
    setWindowModality(window ? Qt::WindowModal : Qt::ApplicationModal);
    setAttribute(Qt::WA_TranslucentBackground, isComposited());
    if (window) {
        window->installEventFilter(this);
    }
}

Sheet::~Sheet() {
    delete veil_;
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && isVisible() &&
        (event->type() == QEvent::Move || event->type() == QEvent::Resize)) {
        follow();
    }
    return QDialog::eventFilter(watched, event);
}

void Sheet::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (QWidget* window = parentWidget(); window && !veil_) {
        veil_ = new Veil(window);
        veil_->show();
    }
    follow();
}

void Sheet::hideEvent(QHideEvent* event) {
    delete veil_;
    QDialog::hideEvent(event);
}

void Sheet::follow() {
    const QWidget* window = parentWidget();
    if (!window) {
        return;
    }
    if (veil_) {
        veil_->setGeometry(window->rect());
        veil_->raise();
    }
    move(window->mapToGlobal(QPoint((window->width() - width()) / 2, metrics::formMargin)));
}

void Sheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    drawPopupFace(painter, option, *this, metrics::buttonRadius);
}

} // namespace calmora
