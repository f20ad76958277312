#include "widgets/PickerRow.h"

#include "widgets/Labels.h"
#include "widgets/Metrics.h"
#include "widgets/Theme.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace calmora {

Picker::Picker(QWidget* parent) : QComboBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Picker::sizeHint() const {
    const QFontMetrics font(Theme::font(TextStyle::body));
    int widest = 0;
    for (int index = 0; index < count(); ++index) {
        widest = std::max(widest, font.horizontalAdvance(itemText(index)));
    }
    return {widest + 3 * metrics::pickerInset + Theme::symbolSide(metrics::chevronPoints),
            font.height() + 8};
}

void Picker::showPopup() {
    setFont(Theme::font(TextStyle::body)); // The list draws its options with it.
    QComboBox::showPopup();
}

void Picker::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        showPopup();
    } else {
        QComboBox::keyPressEvent(event);
    }
}

void Picker::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

PickerRow::PickerRow(const QString& title, const std::vector<PickerOption>& options,
                     std::function<void(std::int64_t)> onPick, QWidget* parent)
    : PairRow(parent), picker_(new Picker(this)) {
    auto* label = new Paragraph(title, TextStyle::body, ThemeColor::primary, this);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setBuddy(picker_); // Screen readers take a picker's name from its label.
    for (const PickerOption& option : options) {
        picker_->addItem(option.title, static_cast<qlonglong>(option.value));
    }
    picker_->setAccessibleName(title);
    setParts(label, picker_);
    connect(picker_, &QComboBox::activated, this,
            [picker = picker_, pick = std::move(onPick)](int index) {
                pick(picker->itemData(index).toLongLong());
            });
}

void PickerRow::setValue(std::int64_t value) {
    picker_->setCurrentIndex(picker_->findData(static_cast<qlonglong>(value)));
}

} // namespace calmora
