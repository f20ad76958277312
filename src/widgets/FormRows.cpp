#include "widgets/FormRows.h"

#include "widgets/FormMetrics.h"
#include "widgets/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

namespace calmora {

FormRows::FormRows(QWidget* parent) : QWidget(parent), rows_(new QVBoxLayout(this)) {
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(1);
}

void FormRows::addRow(QWidget* row) {
    rows_->addWidget(row);
}

void FormRows::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    bool isFirst = true;
    for (int index = 0; index < rows_->count(); ++index) {
        const QWidget* row = rows_->itemAt(index)->widget();
        if (!row || row->isHidden()) {
            continue;
        }
        if (!isFirst) {
            painter.fillRect(
                QRect(metrics::rowInset, row->y() - 1, width() - 2 * metrics::rowInset, 1),
                Theme::of(*this).color(ThemeColor::separator));
        }
        isFirst = false;
    }
}

} // namespace calmora
