// SPDX-License-Identifier: MIT
#include "ui/PopoverFooter.h"

#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Theme.h"

#include <QHBoxLayout>

#include <utility>

namespace calmora {
namespace {

constexpr Points ring = metrics::focusRing;
constexpr int gearPoints = 14;

} // namespace

PopoverFooter::PopoverFooter(std::function<void()> openSettings, std::function<void()> reopen,
                             QWidget* parent)
    : QWidget(parent), status_(new Label({}, TextStyle::caption2, ThemeColor::tertiary, this)),
      reopen_(new Button(uiText("Reopen"), TextStyle::caption, this)),
      gear_(new SymbolButton(this)) {
    status_->setObjectName("status");
    reopen_->setObjectName("reopen");
    reopen_->setFocusPolicy(Qt::TabFocus);
    reopen_->setAutoDefault(false);
    reopen_->hide();
    gear_->setObjectName("openSettings");
    gear_->setSymbol("gear", gearPoints, ThemeColor::secondary);
    gear_->setAccessibleName(uiText("Settings"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(metrics::inset - ring, Points{8} - ring, metrics::inset - ring,
                            Points{8} - ring);
    row->setSpacing(Points{8});
    row->addSpacing(ring);
    row->addWidget(status_, 1);
    row->addWidget(reopen_);
    row->addWidget(gear_);
    connect(gear_, &QAbstractButton::clicked, this, std::move(openSettings));
    connect(reopen_, &QAbstractButton::clicked, this, std::move(reopen));
}

void PopoverFooter::show(const QString& status, bool canReopen) {
    if (status_->text() != status) {
        status_->setText(status);
    }
    reopen_->setVisible(canReopen);
}

std::vector<QWidget*> PopoverFooter::tabStops() const {
    return {reopen_, gear_};
}

} // namespace calmora
