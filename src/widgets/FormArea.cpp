#include "widgets/FormArea.h"

#include <QApplication>

namespace calmora {

FormArea::FormArea(QWidget* form, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(form);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        // A clicked control must not move away from under the pointer. A window that the click
        // activates regains its focus even before the press arrives.
        const bool isByKeyboard = before && now && before->window() == now->window() &&
                                  QGuiApplication::mouseButtons() == Qt::NoButton;
        if (isByKeyboard && widget()->isAncestorOf(now)) {
            ensureWidgetVisible(now);
        }
    });
}

} // namespace calmora
