#include "settings/AboutSettingsView.h"

#include "platform/Updater.h"
#include "widgets/BorderedButton.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

namespace calmora {
namespace {

constexpr int spacing = 16;
constexpr int dividerWidth = 200;
constexpr double iconRadius = 22;

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

Label* line(const char* name, const QString& text, TextStyle style, QFont::Weight weight,
            ThemeColor color) {
    auto* label = new Label(style, weight, color);
    label->setObjectName(name);
    label->setText(text);
    return label;
}

} // namespace

AboutSettingsView::AboutSettingsView(Updater& updater, const std::optional<Image>& icon,
                                     const std::optional<std::string>& version, QWidget* parent)
    : QWidget(parent), checkForUpdatesViewModel_(updater) {
    setObjectName("aboutSettings");
    auto* items = new QVBoxLayout(this);
    items->setSpacing(spacing);
    items->addStretch();
    const auto add = [&](QWidget* item) { items->addWidget(item, 0, Qt::AlignHCenter); };

    const QPixmap picture = icon ? imagePixmap(*icon, iconSide, devicePixelRatio()) : QPixmap();
    if (!picture.isNull()) {
        auto* label = new QLabel;
        label->setObjectName("icon");
        label->setPixmap(rounded(picture));
        add(label);
    }
    add(line("name", "Calmora", TextStyle::title, QFont::Bold, ThemeColor::primary));
    add(line("version",
             uiText("version_label %@", QString::fromStdString(version.value_or("1.0.0"))),
             TextStyle::body, QFont::Normal, ThemeColor::secondary));

    auto* check = new BorderedButton(uiText("Check for Updates…"), TextStyle::body);
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
    add(check);

    auto* divider = new Divider(nullptr, 0);
    divider->setFixedWidth(dividerWidth);
    add(divider);
    add(line("notice", uiText("Quits your applications. Spares your work."), TextStyle::caption,
             QFont::Normal, ThemeColor::tertiary));
    items->addStretch();
}

} // namespace calmora
