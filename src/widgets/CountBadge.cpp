#include "widgets/CountBadge.h"

#include "widgets/Theme.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace calmora {
namespace {

constexpr QSize padding{6, 1};

QFont badgeFont() {
    return Theme::font(TextStyle::caption, QFont::Medium);
}

} // namespace

CountBadge::CountBadge(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CountBadge::sizeHint() const {
    const QFontMetrics font(badgeFont());
    const int height = font.height() + 2 * padding.height();
    return {std::max(font.horizontalAdvance(text()) + 2 * padding.width(), height), height};
}

void CountBadge::paintEvent(QPaintEvent*) {
    const Theme theme = Theme::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor face = theme.color(ThemeColor::teal);
    if (theme.appearance() == Appearance::dark) {
        face = face.darker(150);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(face);
    const double radius = height() / 2.0;
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setFont(badgeFont());
    painter.setPen(theme.color(ThemeColor::onAccent));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace calmora
