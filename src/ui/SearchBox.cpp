// SPDX-License-Identifier: MIT
#include "ui/SearchBox.h"

#include "widgets/DisplayText.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

namespace calmora {
namespace {

constexpr Points sidePadding{8};
constexpr Points verticalPadding{5};
constexpr Points spacing{6};
constexpr int symbolPoints = 10;

} // namespace

SearchBox::SearchBox(QWidget* parent)
    : QWidget(parent), field_(new QLineEdit(this)), clear_(new SymbolButton(this)) {
    const QString name = uiText("Search");
    setObjectName("searchBox");
    setCursor(Qt::IBeamCursor);
    field_->setObjectName("search");
    field_->setPlaceholderText(name);
    field_->setAccessibleName(name);
    field_->setFrame(false);
    field_->setTextMargins(-2, 0, -2, 0);
    field_->setAttribute(Qt::WA_MacShowFocusRect, false);
    field_->installEventFilter(this);
    clear_->setObjectName("clearSearch");
    clear_->setSymbol("xmark.circle.fill", symbolPoints, ThemeColor::secondary);
    clear_->setAccessibleName(uiText("Clear search"));
    clear_->setCursor(Qt::ArrowCursor);
    clear_->hide();
    connect(field_, &QLineEdit::textChanged, clear_,
            [this](const QString& text) { clear_->setVisible(!text.isEmpty()); });
    connect(clear_, &QAbstractButton::clicked, this, [this] {
        field_->clear();
        field_->setFocus(Qt::OtherFocusReason);
    });

    auto* line = new QHBoxLayout(this);
    const int margin = sidePadding - metrics::focusRing;
    line->setContentsMargins(margin, verticalPadding, margin, verticalPadding);
    line->setSpacing(spacing);
    line->addSpacing(metrics::focusRing + Theme::symbolSide(symbolPoints) + spacing);
    line->addWidget(field_, 1);
    line->addWidget(clear_);
    applyTheme();
}

void SearchBox::applyTheme() {
    const QFont font = Theme::font(TextStyle::body);
    if (field_->font() != font) {
        field_->setFont(font);
    }
    field_->setFixedHeight(QFontMetrics(font).height());
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    colors.setColor(QPalette::Text, Theme(colors).color(ThemeColor::primary));
    colors.setColor(QPalette::PlaceholderText, Theme(colors).color(ThemeColor::tertiary));
    field_->setPalette(colors);
}

void SearchBox::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange) {
        applyTheme();
        update();
    }
    QWidget::changeEvent(event);
}

bool SearchBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == field_ &&
        (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) {
        update();
    }
    return QWidget::eventFilter(watched, event);
}

void SearchBox::paintEvent(QPaintEvent*) {
    const Theme theme = Theme::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.color(ThemeColor::fill));
    painter.drawRoundedRect(rect(), metrics::fieldRadius, metrics::fieldRadius);
    if (field_->hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(theme.color(ThemeColor::focusRing), 1.5));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75),
                                metrics::fieldRadius - 0.75, metrics::fieldRadius - 0.75);
    }
    const int side = Theme::symbolSide(symbolPoints);
    const QRect symbol(sidePadding, 0, side, height());
    drawSymbol(painter, QStyle::visualRect(layoutDirection(), rect(), symbol), "magnifyingglass",
               side, theme.color(ThemeColor::secondary));
}

} // namespace calmora
