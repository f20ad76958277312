#include "settings/form/FormKeys.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace calmora {

bool handleFormKey(QAbstractButton& button, QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        button.click();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
        event.ignore();
        return true;
    default:
        return false;
    }
}

} // namespace calmora
