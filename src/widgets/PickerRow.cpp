#include "widgets/PickerRow.h"

#include "widgets/FormMetrics.h"
#include "widgets/Paragraph.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

constexpr int textInset = 9;
constexpr int chevronPoints = 8;
constexpr int verticalPadding = 4;

} // namespace

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
    return {widest + 3 * textInset + Theme::symbolSide(chevronPoints),
            font.height() + 2 * verticalPadding};
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

void Picker::paintEvent(QPaintEvent*) {
    const Theme theme = Theme::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : metrics::disabledOpacity);
    const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(theme.color(ThemeColor::controlBorder));
    painter.setBrush(theme.color(ThemeColor::controlFace));
    painter.drawRoundedRect(face, metrics::buttonCorner, metrics::buttonCorner);

    const Qt::LayoutDirection direction = layoutDirection();
    const int side = Theme::symbolSide(chevronPoints);
    const QRect chevron(width() - textInset - side, 0, side, height());
    drawSymbol(painter, QStyle::visualRect(direction, rect(), chevron), "chevron.down", side,
               theme.color(ThemeColor::secondary));
    const QRect label(textInset, 0, chevron.left() - textInset, height());
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(theme.color(ThemeColor::primary));
    painter.drawText(
        QStyle::visualRect(direction, rect(), label),
        static_cast<int>(QStyle::visualAlignment(direction, Qt::AlignLeft | Qt::AlignVCenter)),
        currentText());
    if (showsFocus(*this)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(theme.color(ThemeColor::focusRing), 2));
        painter.drawRoundedRect(face.adjusted(0.5, 0.5, -0.5, -0.5), metrics::buttonCorner,
                                metrics::buttonCorner);
    }
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
