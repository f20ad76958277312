// SPDX-License-Identifier: MIT
#include "settings/AboutPanel.h"

#include "platform/LocalizedStrings.h"
#include "settings/AboutSettingsView.h"
#include "settings/WindowKeys.h"
#include "widgets/ContentArea.h"
#include "widgets/Theme.h"

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
    auto* line = new QLabel(versionText(version));
    line->setObjectName("version");
    line->setFont(Theme::font(TextStyle::body));
    line->setAlignment(Qt::AlignCenter);
    QPalette palette = line->palette();
    palette.setColor(QPalette::WindowText, Theme::of(*this).color(ThemeColor::secondary));
    line->setPalette(palette);
    line->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(line);
    auto* area = new ContentArea(content, this);
    setFixedSize(boundedByScreen(*this, content->sizeHint()));
    area->resize(size());
}

} // namespace calmora
