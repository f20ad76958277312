// SPDX-License-Identifier: MIT
#include "widgets/DisplayText.h"

#include "platform/LocalizedStrings.h"
#include "support/ShownName.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace calmora {
namespace {

/// The number with a point and `decimals` digits behind it, in every language, rounded as printf(3)
/// does it: 512.5 is 512.
QString figure(const std::optional<double>& value, int decimals, const char* unit) {
    if (!value || !std::isfinite(*value)) {
        return QStringLiteral("—");
    }
    std::array<char, 400> digits{};
    const auto written =
        std::to_chars(digits.begin(), digits.end(), *value, std::chars_format::fixed, decimals);
    return QLatin1String(digits.data(), written.ptr - digits.data()) + QLatin1String(unit);
}

} // namespace

QString uiText(const char* key) {
    return QCoreApplication::translate("Calmora", key);
}

QString uiText(const char* key, const QString& argument) {
    return QString::fromStdString(
        fillPlaceholders(uiText(key).toStdString(), {argument.toStdString()}));
}

QString uiCount(const char* key, qlonglong count) {
    const int number =
        static_cast<int>(std::clamp<qlonglong>(count, 0, std::numeric_limits<int>::max()));
    const QString text = QCoreApplication::translate("Calmora", key, nullptr, number);
    return QString::fromStdString(fillPlaceholders(text.toStdString(), {std::int64_t{count}}));
}

QString displayName(const std::string& name) {
    return QString::fromStdString(shownName(name));
}

void drawLine(QPainter& painter, const QRect& bounds, const QString& text, LineEnd end,
              Qt::LayoutDirection interfaceDirection) {
    const bool atRight = (end == LineEnd::trailing) == (interfaceDirection == Qt::LeftToRight);
    const Qt::Alignment edge = atRight ? Qt::AlignRight : Qt::AlignLeft;
    const Qt::LayoutDirection before = painter.layoutDirection();
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(
        bounds, static_cast<int>(edge | Qt::AlignAbsolute | Qt::AlignVCenter) | Qt::TextSingleLine,
        text);
    painter.setLayoutDirection(before);
}

QString cpuText(const std::optional<double>& percent) {
    return figure(percent, 1, "%");
}

QString memoryText(const std::optional<double>& mebibytes) {
    return figure(mebibytes, 0, " MB");
}

QString amountText(double mebibytes) {
    constexpr double perGB = 1024;
    return mebibytes < perGB ? memoryText(mebibytes) : figure(mebibytes / perGB, 1, " GB");
}

} // namespace calmora
