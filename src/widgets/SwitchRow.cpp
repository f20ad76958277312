#include "widgets/SwitchRow.h"

#include "widgets/Controls.h"
#include "widgets/FormMetrics.h"
#include "widgets/Paragraph.h"
#include "widgets/Theme.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace calmora {
namespace {

constexpr QSize track{34, 20};
constexpr int knobMargin = 2;
constexpr int slideMilliseconds = 120;

int textWidth(int rowWidth) {
    return rowWidth - 2 * metrics::rowInset - track.width() - metrics::rowSpacing;
}

QColor mixed(const QColor& a, const QColor& b, double share) {
    const auto part = [share](float from, float to) {
        return from + (to - from) * static_cast<float>(share);
    };
    return QColor::fromRgbF(part(a.redF(), b.redF()), part(a.greenF(), b.greenF()),
                            part(a.blueF(), b.blueF()), part(a.alphaF(), b.alphaF()));
}

} // namespace

SwitchRow::SwitchRow(const QString& title, QWidget* parent) : QCheckBox(title, parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    knob_.setStartValue(0.0);
    knob_.setEndValue(1.0);
    knob_.setDuration(slideMilliseconds);
    knob_.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&knob_, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(this, &QCheckBox::toggled, this, [this](bool isOn) { slide(isOn); });
}

QSize SwitchRow::sizeHint() const {
    const int width = QFontMetrics(Theme::font(TextStyle::body)).horizontalAdvance(text()) + 2;
    const int row = width - textWidth(0);
    return {row, heightForWidth(row)};
}

QSize SwitchRow::minimumSizeHint() const {
    const int row = longestWord(Theme::font(TextStyle::body), text()) - textWidth(0);
    return {row, metrics::formRow};
}

int SwitchRow::heightForWidth(int width) const {
    const int textHeight = wrappedHeight(Theme::font(TextStyle::body), text(), textWidth(width));
    return std::max(metrics::formRow, textHeight + 2 * metrics::rowPadding);
}

bool SwitchRow::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void SwitchRow::keyPressEvent(QKeyEvent* event) {
    if (!handleButtonKey(*this, *event)) {
        QCheckBox::keyPressEvent(event);
    }
}

void SwitchRow::slide(bool isOn) {
    knob_.setDirection(isOn ? QVariantAnimation::Forward : QVariantAnimation::Backward);
    if (isVisible()) {
        knob_.start();
    } else {
        knob_.stop();
        knob_.setCurrentTime(isOn ? slideMilliseconds : 0);
    }
}

void SwitchRow::paintEvent(QPaintEvent*) {
    const Theme theme = Theme::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : metrics::disabledOpacity);

    const QRect content = rect().adjusted(metrics::rowInset, 0, -metrics::rowInset, 0);
    const QRect label(content.x(), 0, textWidth(width()), height());
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(theme.color(ThemeColor::primary));
    const Qt::LayoutDirection direction = layoutDirection();
    painter.drawText(
        QStyle::visualRect(direction, rect(), label),
        static_cast<int>(QStyle::visualAlignment(direction, Qt::AlignLeft | Qt::AlignVCenter)) |
            Qt::TextWordWrap,
        text());

    const QRect place(QPoint(content.right() + 1 - track.width(), (height() - track.height()) / 2),
                      track);
    const QRectF box = QStyle::visualRect(direction, rect(), place);
    const double share = knob_.currentValue().toDouble();
    painter.setPen(Qt::NoPen);
    QColor on = theme.color(ThemeColor::teal);
    if (theme.appearance() == Appearance::dark) {
        on = on.darker(140);
    }
    QColor face = mixed(theme.color(ThemeColor::controlBorder), on, share);
    painter.setBrush(isDown() ? face.darker(112) : face);
    const double radius = box.height() / 2;
    painter.drawRoundedRect(box, radius, radius);
    const double side = box.height() - 2 * knobMargin;
    const double travel = box.width() - box.height();
    const double offset = direction == Qt::RightToLeft ? travel * (1 - share) : travel * share;
    painter.setBrush(theme.color(ThemeColor::onAccent));
    painter.drawEllipse(
        QRectF(box.left() + knobMargin + offset, box.top() + knobMargin, side, side));
    if (showsFocus(*this)) {
        drawFocusRing(painter, box, radius, theme);
    }
}

} // namespace calmora
