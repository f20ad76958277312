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

#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace calmora {
namespace {

constexpr Points tabMargin{6};

} // namespace

SettingsView::SettingsView(AppSettings& settings, Updater& updater,
                           const SettingsSurroundings& surroundings, QWidget* parent)
    : QWidget(parent) {
    setFixedSize(boundedByScreen(*this, {Points{size.width()}, Points{size.height()}}));
    auto* tabs = new QTabBar;
    tabs->setObjectName("settingsTabs");
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    tabs->setUsesScrollButtons(false);
    tabs->setElideMode(Qt::ElideNone);
    tabs->setFocusPolicy(Qt::TabFocus);
    tabs->setFont(Theme::font(TextStyle::body));
    auto* panes = new QStackedWidget;
    const auto add = [&](const char* label, const char* symbol, QWidget* pane) {
        tabs->setTabData(tabs->addTab(uiText(label)), symbol);
        panes->addWidget(pane);
    };
    add("General", "gear",
        new GeneralSettingsView(settings, updater, surroundings.loginItem, surroundings.platform,
                                surroundings.limitations, surroundings.extension));
    add("Shortcuts", "keyboard", new ShortcutsSettingsView(surroundings.recorders));
    add("About", "info.circle",
        new ContentArea(new AboutSettingsView(updater, surroundings.icon,
                                              surroundings.platform.bundle.shortVersion())));
    connect(tabs, &QTabBar::currentChanged, panes, &QStackedWidget::setCurrentIndex);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, tabMargin, 0, 0);
    column->setSpacing(tabMargin);
    column->addWidget(tabs, 0, Qt::AlignHCenter);
    column->addWidget(new Divider(metrics::inset));
    column->addWidget(panes, 1);
}

} // namespace calmora
