// SPDX-License-Identifier: MIT
#include "autoquit/views/ProspectList.h"

#include "autoquit/AutoQuitRules.h"
#include "autoquit/views/ProspectText.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

constexpr Points iconSide{24};

} // namespace

ProspectList::ProspectList(QWidget* parent)
    : FormRows(parent), empty_(new Paragraph(uiText("No running apps found"), TextStyle::caption,
                                             ThemeColor::secondary, this)) {
    setObjectName("prospects");
    empty_->setContentsMargins(metrics::rowInset, metrics::rowInset, metrics::rowInset,
                               metrics::rowInset);
    empty_->hide();
    addRow(empty_);
}

void ProspectList::show(const std::vector<Prospect>& prospects) {
    const bool isSame =
        std::ranges::equal(shown_, prospects, [](const Row& row, const Prospect& prospect) {
            return row.process == prospect.application.processIdentifier &&
                   row.name == displayName(nameOf(prospect.application));
        });
    if (!isSame) {
        for (const Row& row : std::exchange(shown_, {})) {
            row.widget->hide();
            row.widget->deleteLater();
        }
        for (const Prospect& prospect : prospects) {
            shown_.push_back(makeRow(prospect));
            addRow(shown_.back().widget);
        }
        empty_->setVisible(prospects.empty());
    }
    for (std::size_t at = 0; at < prospects.size(); ++at) {
        const QString text = prospectText(prospects[at]);
        Row& row = shown_[at];
        if (row.text->text() != text) {
            row.text->setText(text);
            row.widget->setAccessibleName(row.name + ", " + text);
        }
    }
}

ProspectList::Row ProspectList::makeRow(const Prospect& prospect) {
    Row row{.process = prospect.application.processIdentifier,
            .name = displayName(nameOf(prospect.application)),
            .widget = new QWidget(this)};
    row.widget->setObjectName("prospect");
    row.widget->setMinimumHeight(metrics::formRow);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    auto* name = new Label(row.name, TextStyle::body, ThemeColor::primary, row.widget);
    name->setObjectName("appName");
    row.text = new Paragraph({}, TextStyle::caption, ThemeColor::secondary, row.widget);
    row.text->setObjectName("prospectText");
    texts->addWidget(name);
    texts->addWidget(row.text);
    auto* layout = new QHBoxLayout(row.widget);
    layout->setContentsMargins(metrics::rowInset, metrics::rowPadding, metrics::rowInset,
                               metrics::rowPadding);
    layout->setSpacing(metrics::rowSpacing);
    layout->addWidget(new AppIconView(prospect.application.icon, iconSide, row.widget));
    layout->addLayout(texts, 1);
    return row;
}

} // namespace calmora
