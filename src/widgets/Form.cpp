// SPDX-License-Identifier: MIT
#include "widgets/Form.h"

#include "widgets/Labels.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

/// Rows on a rounded face.
class Card final : public FormRows {
  public:
    explicit Card(QWidget* parent) : FormRows(parent) { setContentsMargins(0, 1, 0, 1); }

  protected:
    void paintEvent(QPaintEvent* event) override {
        const Theme theme = Theme::of(*this);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(theme.color(ThemeColor::separator));
        painter.setBrush(theme.color(ThemeColor::controlFace));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5),
                                metrics::buttonRadius, metrics::buttonRadius);
        painter.end();
        FormRows::paintEvent(event);
    }
};

int heightOf(const QWidget& part, int width) {
    return part.hasHeightForWidth() ? part.heightForWidth(width) : part.sizeHint().height();
}

} // namespace

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

FormSection::FormSection(const QString& title, QWidget* parent)
    : QWidget(parent), card_(new Card(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(metrics::titleGap);
    if (!title.isEmpty()) {
        auto* heading = new Paragraph(title, TextStyle::headline, ThemeColor::primary, this);
        heading->setContentsMargins(metrics::rowInset, 0, metrics::rowInset, 0);
        layout->addWidget(heading);
    }
    layout->addWidget(card_);
    setAccessibleName(title);
}

Paragraph* FormSection::addNote(const QString& text) {
    auto* note = new Paragraph(text, TextStyle::caption, ThemeColor::secondary);
    note->setContentsMargins(metrics::rowInset, metrics::rowPadding, metrics::rowInset,
                             metrics::rowPadding);
    addRow(note);
    return note;
}

PairRow::PairRow(QWidget* parent)
    : QWidget(parent), layout_(new QBoxLayout(QBoxLayout::LeftToRight, this)) {
    layout_->setContentsMargins(metrics::rowInset, metrics::rowPadding, metrics::rowInset,
                                metrics::rowPadding);
    layout_->setSpacing(metrics::rowSpacing);
    setMinimumHeight(metrics::formRow);
    setHeightForWidth(*this, QSizePolicy::Preferred);
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
    return std::max<int>(metrics::formRow, text + 2 * metrics::rowPadding);
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
            font.height() + Points{8}};
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

Form::Form(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(metrics::formMargin, metrics::formMargin, metrics::formMargin,
                               metrics::formMargin);
    column->setSpacing(metrics::sectionGap);
    sections_ = new QVBoxLayout;
    column->addLayout(sections_);
    column->addStretch(1);
    setWidget(content);
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

FormSection& Form::addSection(const QString& title) {
    auto* section = new FormSection(title, widget());
    sections_->addWidget(section);
    return *section;
}

} // namespace calmora
