// SPDX-License-Identifier: MIT
#include "settings/SettingsView.h"

#include "platform/Bundle.h"
#include "settings/AboutSettingsView.h"
#include "settings/GeneralSettingsView.h"
#include "settings/ShortcutsSettingsView.h"
#include "widgets/ContentArea.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace calmora {
namespace {

constexpr Points tabMargin{6};

} // namespace

SettingsView::SettingsView(AppSettings& settings, Updater& updater,
                           const SettingsSurroundings& surroundings, QWidget* parent)
    : QWidget(parent), settings_(settings), updater_(updater), surroundings_(surroundings) {
    build();
}

void SettingsView::build() {
    builtScale_ = Theme::textScale();
    setFixedSize(boundedByScreen(*this, {Points{size.width()}, Points{size.height()}}));
    tabs_ = new QTabBar;
    tabs_->setObjectName("settingsTabs");
    tabs_->setDrawBase(false);
    tabs_->setExpanding(false);
    tabs_->setUsesScrollButtons(false);
    tabs_->setElideMode(Qt::ElideNone);
    tabs_->setFocusPolicy(Qt::TabFocus);
    tabs_->setFont(Theme::font(TextStyle::body));
    auto* panes = new QStackedWidget;
    const auto add = [&](const char* label, const char* symbol, QWidget* pane) {
        tabs_->setTabData(tabs_->addTab(uiText(label)), symbol);
        panes->addWidget(pane);
    };
    add("General", "gear",
        new GeneralSettingsView(settings_, updater_, surroundings_.loginItem,
                                surroundings_.platform, surroundings_.limitations,
                                surroundings_.autoQuit, surroundings_.extension));
    add("Shortcuts", "keyboard", new ShortcutsSettingsView(surroundings_.recorders));
    add("About", "info.circle",
        new ContentArea(new AboutSettingsView(updater_, surroundings_.icon,
                                              surroundings_.platform.bundle.shortVersion())));
    connect(tabs_, &QTabBar::currentChanged, panes, &QStackedWidget::setCurrentIndex);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, tabMargin, 0, 0);
    column->setSpacing(tabMargin);
    column->addWidget(tabs_, 0, Qt::AlignHCenter);
    column->addWidget(new Divider(metrics::inset));
    column->addWidget(panes, 1);
}

void SettingsView::followFont() {
    // A sheet stands on what would go: when it has closed, the window is activated.
    if (builtScale_ == Theme::textScale() || QApplication::activeModalWidget()) {
        return;
    }
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    const int tab = tabs_->currentIndex();
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
    delete layout();
    build();
    tabs_->setCurrentIndex(tab);
}

void SettingsView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        QMetaObject::invokeMethod(this, [this] { followFont(); }, Qt::QueuedConnection);
    }
    QWidget::changeEvent(event);
}

bool SettingsView::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        QMetaObject::invokeMethod(this, [this] { followFont(); }, Qt::QueuedConnection);
    }
    return QWidget::event(event);
}

} // namespace calmora
