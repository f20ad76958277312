// SPDX-License-Identifier: MIT
#include "settings/AboutPanel.h"

#include "platform/LocalizedStrings.h"
#include "settings/AboutSettingsView.h"
#include "settings/WindowKeys.h"
#include "widgets/ContentArea.h"
#include "widgets/Theme.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace calmora {

namespace {

/// Between the margins, so that the title fits into the title bar.
constexpr Points leastAboutWidth{190};

} // namespace

AboutPanel::AboutPanel(const LocalizedStrings& strings, const Image& icon,
                       const std::optional<std::string>& version)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowCloseButtonHint) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName("aboutPanel");
    setWindowTitle(QString::fromStdString(strings.text("About Calmora")));
    answerMenuKeys(*this);

    auto* content = new QWidget(this);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(Points{56}, Points{28}, Points{56}, Points{32});
    layout->setSpacing(Points{6});
    layout->addStrut(leastAboutWidth);
    addIconAndName(*layout, icon);
    layout->insertSpacing(2, Points{8}); // Below the icon: the strut is the first item.
    version_ = new QLabel(versionText(version));
    version_->setObjectName("version");
    version_->setFont(Theme::font(TextStyle::body));
    version_->setAlignment(Qt::AlignCenter);
    version_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    colorVersion();
    layout->addWidget(version_);
    auto* area = new ContentArea(content, this);
    setFixedSize(boundedByScreen(*this, content->sizeHint()));
    area->resize(size());
}

void AboutPanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange && version_) {
        colorVersion();
    }
    QWidget::changeEvent(event);
}

void AboutPanel::colorVersion() {
    QPalette palette = version_->palette();
    palette.setColor(QPalette::WindowText, Theme::of(*this).color(ThemeColor::secondary));
    version_->setPalette(palette);
}

} // namespace calmora
