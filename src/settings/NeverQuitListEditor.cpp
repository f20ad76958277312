// SPDX-License-Identifier: MIT
#include "settings/NeverQuitListEditor.h"

#include "settings/AppSettings.h"
#include "settings/NeverQuitList.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Form.h"
#include "widgets/Labels.h"

#include <QHBoxLayout>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

constexpr Points iconSide{20};
constexpr int shieldPoints = 13;
constexpr int removePoints = 13;

} // namespace

NeverQuitListEditor::NeverQuitListEditor(AppSettings& settings, const Platform& platform,
                                         std::function<void()> onAddApp, QWidget* parent)
    : FormRows(parent), settings_(settings), platform_(platform) {
    addRow(makeHeader(std::move(onAddApp)));
    emptyText_ = new Paragraph(uiText("No apps in the never-quit list. Right-click an app in the "
                                      "menu to protect it, or use \"Add App\" above."),
                               TextStyle::caption, ThemeColor::secondary, this);
    emptyText_->setObjectName("neverQuitEmpty");
    emptyText_->setContentsMargins(metrics::rowInset, metrics::rowInset, metrics::rowInset,
                                   metrics::rowInset);
    addRow(emptyText_);
    rebuild();
    change_ = settings_.neverQuitApps.observe([this] { rebuild(); });
}

QWidget* NeverQuitListEditor::makeHeader(std::function<void()> onAddApp) {
    auto* header = new PairRow(this);
    auto* title = new QWidget(header);
    auto* layout = new QHBoxLayout(title);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(metrics::rowSpacing);
    layout->addWidget(
        new SymbolView("checkmark.shield.fill", shieldPoints, ThemeColor::teal, title));
    layout->addWidget(
        new Paragraph(uiText("Protected Apps"), TextStyle::body, ThemeColor::primary, title));
    count_ = new CountBadge(title);
    count_->setObjectName("neverQuitCount");
    layout->addWidget(count_);
    layout->addStretch(1);
    addApp_ = new Button(uiText("Add App"),
                         ButtonLook{.text = TextStyle::caption, .symbol = "plus"}, header);
    addApp_->setObjectName("addApp");
    connect(addApp_, &QAbstractButton::clicked, this, std::move(onAddApp));
    header->setParts(title, addApp_);
    return header;
}

void NeverQuitListEditor::rebuild() {
    const int focused = focusedRow();
    // Deleted later: the change may come from a button in a row.
    for (QWidget* row : std::exchange(rows_, {})) {
        row->setObjectName({});
        row->hide();
        row->deleteLater();
    }
    removeButtons_.clear();
    for (const ProtectedApp& app : protectedApps(settings_, platform_)) {
        rows_.push_back(makeRow(app.bundleIdentifier, app.displayName));
        addRow(rows_.back());
    }
    QWidget* before = addApp_;
    for (QWidget* button : removeButtons_) {
        setTabOrder(before, button);
        before = button;
    }
    count_->setText(QString::number(rows_.size()));
    count_->setVisible(!rows_.empty());
    emptyText_->setVisible(rows_.empty());
    if (focused >= 0) {
        focusRow(focused);
    }
}

QWidget* NeverQuitListEditor::makeRow(const std::string& bundleIdentifier,
                                      const std::string& name) {
    auto* row = new QWidget(this);
    row->setObjectName("neverQuitRow");
    row->setMinimumHeight(metrics::formRow);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(metrics::rowInset, metrics::rowPadding, metrics::rowInset,
                               metrics::rowPadding);
    layout->setSpacing(metrics::rowSpacing);
    layout->addWidget(
        new AppIconView(appIcon(bundleIdentifier, platform_.workspace), iconSide, row));
    auto* label = new Label(displayName(name), TextStyle::body, ThemeColor::primary, row);
    label->setObjectName("appName");
    layout->addWidget(label, 1);
    auto* remove = new SymbolButton(row);
    remove->setObjectName("removeFromNeverQuit");
    remove->setSymbol("minus.circle.fill", removePoints, ThemeColor::red);
    remove->setToolTip(uiText("Remove from never-quit list"));
    remove->setAccessibleName(remove->toolTip());
    remove->setAccessibleDescription(label->text());
    connect(remove, &QAbstractButton::clicked, this,
            [this, bundleIdentifier] { settings_.removeFromNeverQuit(bundleIdentifier); });
    layout->addWidget(remove);
    removeButtons_.push_back(remove);
    return row;
}

int NeverQuitListEditor::focusedRow() const {
    const auto focused = std::ranges::find_if(
        removeButtons_, [](const QAbstractButton* button) { return button->hasFocus(); });
    return focused != removeButtons_.end() ? static_cast<int>(focused - removeButtons_.begin())
                                           : -1;
}

void NeverQuitListEditor::focusRow(int index) {
    if (removeButtons_.empty()) {
        addApp_->setFocus();
    } else {
        const auto last = static_cast<int>(removeButtons_.size()) - 1;
        removeButtons_[static_cast<std::size_t>(std::min(index, last))]->setFocus();
    }
}

} // namespace calmora
