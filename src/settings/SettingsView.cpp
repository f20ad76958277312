#include "settings/SettingsView.h"

#include "platform/Bundle.h"
#include "settings/AboutSettingsView.h"
#include "settings/GeneralSettingsView.h"
#include "settings/SettingsTabs.h"
#include "settings/ShortcutsSettingsView.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"

#include <QStackedWidget>
#include <QVBoxLayout>

namespace calmora {
namespace {

constexpr int tabMargin = 6;

} // namespace

SettingsView::SettingsView(AppSettings& settings, Updater& updater,
                           const SettingsSurroundings& surroundings, QWidget* parent)
    : QWidget(parent) {
    setFixedSize(size);
    auto* tabs = new SettingsTabs;
    auto* panes = new QStackedWidget;
    const auto add = [&](const char* label, const char* symbol, QWidget* pane) {
        tabs->add(symbol, uiText(label));
        panes->addWidget(pane);
    };
    add("General", "gear",
        new GeneralSettingsView(settings, updater, surroundings.loginItem, surroundings.platform));
    add("Shortcuts", "keyboard", new ShortcutsSettingsView(surroundings.recorders));
    add("About", "info.circle",
        new AboutSettingsView(updater, surroundings.icon,
                              surroundings.platform.bundle.shortVersion()));
    connect(tabs, &QTabBar::currentChanged, panes, &QStackedWidget::setCurrentIndex);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, tabMargin, 0, 0);
    column->setSpacing(tabMargin);
    column->addWidget(tabs, 0, Qt::AlignHCenter);
    column->addWidget(new Divider);
    column->addWidget(panes, 1);
}

} // namespace calmora
