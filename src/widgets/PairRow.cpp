#include "widgets/PairRow.h"

#include "widgets/FormMetrics.h"

#include <QBoxLayout>

#include <algorithm>

namespace calmora {
namespace {

int heightOf(const QWidget& part, int width) {
    return part.hasHeightForWidth() ? part.heightForWidth(width) : part.sizeHint().height();
}

} // namespace

PairRow::PairRow(QWidget* parent)
    : QWidget(parent), layout_(new QBoxLayout(QBoxLayout::LeftToRight, this)) {
    layout_->setContentsMargins(metrics::rowInset, metrics::rowPadding, metrics::rowInset,
                                metrics::rowPadding);
    layout_->setSpacing(metrics::rowSpacing);
    setMinimumHeight(metrics::formRow);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void PairRow::setParts(QWidget* leading, QWidget* trailing) {
    leading_ = leading;
    trailing_ = trailing;
    layout_->addWidget(leading, 1);
    layout_->addWidget(trailing, 0, Qt::AlignRight | Qt::AlignVCenter);
}

QSize PairRow::minimumSizeHint() const {
    const int widest = std::max(leading_->minimumSizeHint().width(), trailing_->sizeHint().width());
    return {widest + 2 * metrics::rowInset, metrics::formRow};
}

int PairRow::heightForWidth(int width) const {
    const int inner = width - 2 * metrics::rowInset;
    const QSize end = trailing_->sizeHint();
    const int text =
        fitsBeside(width)
            ? std::max(heightOf(*leading_, inner - end.width() - metrics::rowSpacing), end.height())
            : heightOf(*leading_, inner) + metrics::rowSpacing + end.height();
    return std::max(metrics::formRow, text + 2 * metrics::rowPadding);
}

void PairRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layout_->setDirection(fitsBeside(width()) ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

bool PairRow::fitsBeside(int width) const {
    return leading_->minimumSizeHint().width() + metrics::rowSpacing +
               trailing_->sizeHint().width() + 2 * metrics::rowInset <=
           width;
}

} // namespace calmora
