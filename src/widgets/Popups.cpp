// SPDX-License-Identifier: MIT
#include "widgets/Popups.h"

#include "widgets/Theme.h"

#include <QMenu>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace calmora {
namespace {

/// The width of a popup's edge, in device-independent pixels.
constexpr int edge = 1;
/// Between an item and the sides of its menu.
constexpr Points itemInset{5};
/// Left and right in an item, above and below its text, and between its parts.
constexpr Points itemPadding{9};
constexpr Points itemHeightPadding{5};
constexpr Points partGap{8};
constexpr Points checkSide{10};
constexpr Points separatorHeight{9};

QFont itemFont() {
    return Theme::font(TextStyle::body);
}

QString titleOf(const QStyleOptionMenuItem& option) {
    return option.text.section('\t', 0, 0);
}

QString keyOf(const QStyleOptionMenuItem& option) {
    return option.text.section('\t', 1);
}

/// The width of what stands before the texts.
int columnWidth(const QStyleOptionMenuItem& option) {
    return (option.menuHasCheckableItems ? checkSide + partGap : 0) +
           (option.icon.isNull() ? 0 : option.maxIconWidth + partGap);
}

void drawCheckMark(QPainter& painter, const QRect& bounds) {
    const QRectF box = bounds;
    const auto at = [&](double x, double y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    QPen pen = painter.pen();
    pen.setWidthF(box.width() / 6);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.save();
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{at(0.05, 0.55), at(0.35, 0.85), at(0.95, 0.15)});
    painter.restore();
}

/// The parts of an item from its leading to its trailing end.
void drawParts(QPainter& painter, const QStyleOptionMenuItem& option, const QRect& face,
               bool isLit) {
    QRect rest = face.adjusted(itemPadding, 0, -itemPadding, 0);
    const auto placed = [&](const QRect& place) {
        return QStyle::visualRect(option.direction, face, place);
    };
    const auto take = [&](int width) {
        const QRect place(rest.left(), rest.center().y() - width / 2, width, width);
        rest.setLeft(rest.left() + width + partGap);
        return placed(place);
    };
    if (option.menuHasCheckableItems) {
        const QRect place = take(checkSide);
        if (option.checked) {
            drawCheckMark(painter, place);
        }
    }
    if (!option.icon.isNull()) {
        option.icon.paint(&painter, take(option.maxIconWidth), Qt::AlignCenter,
                          isLit ? QIcon::Selected : QIcon::Normal);
    }
    const auto alignment = [&](Qt::Alignment end) {
        return static_cast<int>(QStyle::visualAlignment(option.direction, end | Qt::AlignVCenter));
    };
    painter.drawText(placed(rest),
                     alignment(Qt::AlignLeft) | Qt::TextSingleLine | Qt::TextHideMnemonic,
                     titleOf(option));
    painter.drawText(placed(rest), alignment(Qt::AlignRight) | Qt::TextSingleLine, keyOf(option));
}

} // namespace

int menuPadding() {
    return itemInset;
}

int optionInset() {
    return edge + itemInset + itemPadding + checkSide + partGap;
}

int toolTipPadding() {
    return Points{6};
}

bool isPopup(const QWidget& widget) {
    return qobject_cast<const QMenu*>(&widget) || widget.inherits("QComboBoxPrivateContainer") ||
           widget.inherits("QTipLabel");
}

void drawPopupFace(QPainter& painter, const QStyleOption& option, const QWidget& popup,
                   int radius) {
    const Theme theme(option.palette);
    const bool isRound = popup.window()->testAttribute(Qt::WA_TranslucentBackground);
    const double round = isRound ? radius : 0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, isRound);
    if (isRound) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(option.rect, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    painter.setBrush(option.palette.brush(popup.backgroundRole()));
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(option.rect, round, round);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(theme.color(ThemeColor::controlBorder));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), round, round);
    painter.restore();
}

void drawMenuItem(QPainter& painter, const QStyleOptionMenuItem& option) {
    const Theme theme(option.palette);
    const QRect face = option.rect.adjusted(itemInset, 0, -itemInset, 0);
    painter.setRenderHint(QPainter::Antialiasing);
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(
            QRect(face.left() + itemPadding, face.center().y(), face.width() - 2 * itemPadding, 1),
            theme.color(ThemeColor::separator));
        return;
    }
    const bool isEnabled = option.state & QStyle::State_Enabled;
    const bool isLit = isEnabled && (option.state & QStyle::State_Selected);
    if (isLit) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(ThemeColor::accentFace));
        painter.drawRoundedRect(face, metrics::badgeRadius, metrics::badgeRadius);
    }
    painter.setOpacity(isEnabled ? 1 : metrics::disabledOpacity);
    painter.setFont(itemFont());
    painter.setPen(theme.color(isLit ? ThemeColor::onAccent : ThemeColor::primary));
    drawParts(painter, option, face, isLit);
}

QSize menuItemSize(const QStyleOptionMenuItem& option) {
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        return {0, separatorHeight};
    }
    const QFontMetrics font(itemFont());
    const QString key = keyOf(option);
    const int text = font.size(Qt::TextSingleLine | Qt::TextHideMnemonic, titleOf(option)).width();
    const int keys = key.isEmpty() ? 0 : font.horizontalAdvance(key) + 2 * partGap;
    const int icon = option.icon.isNull() ? 0 : option.maxIconWidth;
    const int height = std::max(font.height(), icon) + 2 * itemHeightPadding;
    return {columnWidth(option) + text + keys + 2 * (itemInset + itemPadding) + 2, height};
}

} // namespace calmora
