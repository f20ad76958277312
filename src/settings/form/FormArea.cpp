#include "settings/form/FormArea.h"

#include <QApplication>

namespace calmora {

FormArea::FormArea(QWidget* form, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(form);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        // What is clicked must not move away from under the pointer; a window that the click
        // activates gets its focus back even before the press arrives.
        const bool isByKeyboard = before && now && before->window() == now->window() &&
                                  QGuiApplication::mouseButtons() == Qt::NoButton;
        if (isByKeyboard && widget()->isAncestorOf(now)) {
            ensureWidgetVisible(now);
        }
    });
}

} // namespace calmora
