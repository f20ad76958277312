#include "settings/CandidateRow.h"

#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Metrics.h"

#include <QFontMetrics>
#include <QHBoxLayout>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

constexpr int iconSide = 24;
constexpr int padding = 5;

} // namespace

CandidateRow::CandidateRow(const WorkspaceApplication& app, std::function<void()> onAdd,
                           QWidget* parent)
    : QWidget(parent),
      added_(new Label(uiText("Added"), TextStyle::caption, ThemeColor::secondary, this)),
      add_(new Button(uiText("Add"), TextStyle::caption, this)) {
    setObjectName("candidate");
    auto* name = new Label(app.localizedName ? displayName(*app.localizedName) : uiText("Unknown"),
                           TextStyle::body, ThemeColor::primary, this);
    name->setObjectName("appName");
    added_->setObjectName("added");
    added_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    add_->setObjectName("add");
    add_->setAccessibleDescription(name->text());
    connect(add_, &QAbstractButton::clicked, this, std::move(onAdd));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(metrics::formMargin, 0, metrics::formMargin, 0);
    layout->setSpacing(metrics::rowSpacing);
    layout->addWidget(new AppIconView(app.icon, iconSide, this));
    layout->addWidget(name, 1);
    layout->addWidget(added_);
    layout->addWidget(add_);
}

void CandidateRow::setAdded(bool isAdded) {
    added_->setVisible(isAdded);
    add_->setVisible(!isAdded);
}

QWidget* CandidateRow::addButton() const {
    return add_;
}

int CandidateRow::rowHeight() {
    const int text = QFontMetrics(Theme::font(TextStyle::body)).height();
    return std::max(iconSide, text + padding) + 2 * padding;
}

} // namespace calmora
