#include "settings/form/FormArea.h"

#include <QApplication>

namespace calmora {

FormArea::FormArea(QWidget* form, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(form);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now && widget()->isAncestorOf(now)) {
            ensureWidgetVisible(now);
        }
    });
}

} // namespace calmora
