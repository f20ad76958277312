// SPDX-License-Identifier: MIT
#include "settings/AboutSettingsView.h"

#include "platform/Updater.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

namespace calmora {
namespace {

constexpr Points aboutIconSide{96};
constexpr Points aboutSpacing{16};
constexpr Points dividerWidth{200};
constexpr Points iconRadius{22};

/// The picture with round corners.
QPixmap rounded(const QPixmap& picture) {
    QPixmap result(picture.size());
    result.setDevicePixelRatio(picture.devicePixelRatio());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(QRectF({}, picture.deviceIndependentSize()), iconRadius, iconRadius);
    painter.setClipPath(outline);
    painter.drawPixmap(0, 0, picture);
    return result;
}

void addLine(QVBoxLayout& column, const char* name, const QString& text, TextStyle style,
             ThemeColor color, QFont::Weight weight = QFont::Normal) {
    auto* label = new Label(text, style, color);
    label->setWeight(weight);
    label->setObjectName(name);
    column.addWidget(label, 0, Qt::AlignHCenter);
}

} // namespace

void addIconAndName(QVBoxLayout& column, const std::optional<Image>& icon) {
    const qreal ratio = column.parentWidget()->devicePixelRatioF();
    const QPixmap picture = icon ? imagePixmap(*icon, aboutIconSide, ratio) : QPixmap();
    if (!picture.isNull()) {
        auto* label = new QLabel;
        label->setObjectName("icon");
        label->setPixmap(rounded(picture));
        column.addWidget(label, 0, Qt::AlignHCenter);
    }
    addLine(column, "name", "Calmora", TextStyle::title, ThemeColor::primary, QFont::Bold);
}

QString versionText(const std::optional<std::string>& version) {
    return uiText("version_label %@", QString::fromStdString(version.value_or("1.0.0")));
}

AboutSettingsView::AboutSettingsView(Updater& updater, const std::optional<Image>& icon,
                                     const std::optional<std::string>& version, QWidget* parent)
    : QWidget(parent), checkForUpdatesViewModel_(updater) {
    setObjectName("aboutSettings");
    auto* items = new QVBoxLayout(this);
    items->setSpacing(aboutSpacing);
    items->addStretch();
    addIconAndName(*items, icon);
    addLine(*items, "version", versionText(version), TextStyle::body, ThemeColor::secondary);

    auto* check = new Button(uiText("Check for Updates…"), TextStyle::body);
    check->setObjectName("checkForUpdates");
    if (const auto reason = updater.unavailableReason()) {
        check->setToolTip(uiText(reason->c_str()));
    }
    connect(check, &QAbstractButton::clicked, this, [&updater] { updater.checkForUpdates(); });
    const auto follow = [this, check] {
        check->setEnabled(checkForUpdatesViewModel_.canCheckForUpdates());
    };
    follow();
    changes_ = checkForUpdatesViewModel_.observe(follow);
    items->addWidget(check, 0, Qt::AlignHCenter);

    auto* divider = new Divider(0);
    divider->setFixedWidth(dividerWidth);
    items->addWidget(divider, 0, Qt::AlignHCenter);
    addLine(*items, "notice", uiText("Quits your applications. Spares your work."),
            TextStyle::caption, ThemeColor::tertiary);
    items->addStretch();
}

} // namespace calmora
