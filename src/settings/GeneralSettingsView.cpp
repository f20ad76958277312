#include "settings/GeneralSettingsView.h"

#include "platform/Updater.h"
#include "settings/AddAppSheet.h"
#include "settings/AppSettings.h"
#include "settings/NeverQuitListEditor.h"
#include "settings/form/BorderedButton.h"
#include "settings/form/FormArea.h"
#include "settings/form/FormMetrics.h"
#include "settings/form/FormSection.h"
#include "settings/form/Paragraph.h"
#include "settings/form/PickerRow.h"
#include "settings/form/SwitchRow.h"
#include "ui/DisplayText.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <array>
#include <functional>
#include <utility>

namespace calmora {
namespace {

/// What a picker offers for one value of a preference.
template <typename Value>
struct Choice {
    const char* title;
    Value value;
};

constexpr std::array sortOrders{
    Choice<SortOrder>{"Name (A-Z)", SortOrder::alphabetical},
    Choice<SortOrder>{"CPU Usage", SortOrder::cpuUsage},
    Choice<SortOrder>{"Memory Usage", SortOrder::memoryUsage},
};

constexpr std::array resourceDisplays{
    Choice<ResourceDisplay>{"CPU Only", ResourceDisplay::cpuOnly},
    Choice<ResourceDisplay>{"Memory Only", ResourceDisplay::memoryOnly},
    Choice<ResourceDisplay>{"Both", ResourceDisplay::both},
    Choice<ResourceDisplay>{"None", ResourceDisplay::none},
};

constexpr std::array quitModes{
    Choice<QuitMode>{"Normal", QuitMode::normal},
    Choice<QuitMode>{"Force", QuitMode::force},
};

constexpr std::array idleMinutes{
    Choice<std::int64_t>{"5 minutes", 5},   Choice<std::int64_t>{"10 minutes", 10},
    Choice<std::int64_t>{"15 minutes", 15}, Choice<std::int64_t>{"30 minutes", 30},
    Choice<std::int64_t>{"1 hour", 60},     Choice<std::int64_t>{"2 hours", 120},
    Choice<std::int64_t>{"4 hours", 240},   Choice<std::int64_t>{"8 hours", 480},
};

template <typename Choices>
std::vector<PickerOption> options(const Choices& choices) {
    std::vector<PickerOption> result;
    for (const auto& choice : choices) {
        result.push_back({uiText(choice.title), static_cast<std::int64_t>(choice.value)});
    }
    return result;
}

} // namespace

GeneralSettingsView::GeneralSettingsView(AppSettings& settings, Updater& updater,
                                         LoginItem& loginItem, const Platform& platform,
                                         QWidget* parent)
    : QWidget(parent), settings_(settings), updater_(updater), platform_(platform),
      openAtLogin_(settings, loginItem) {
    auto* form = new QWidget;
    build(form);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new FormArea(form));
    refresh();
    changes_ = settings_.observeAny([this](AppSettings::Property) { refresh(); });
}

void GeneralSettingsView::build(QWidget* form) {
    auto* sections = new QVBoxLayout(form);
    sections->setContentsMargins(metrics::formMargin, metrics::formMargin, metrics::formMargin,
                                 metrics::formMargin);
    sections->setSpacing(metrics::sectionGap);
    const auto add = [&](const char* title) -> FormSection& {
        auto* section = new FormSection(title ? uiText(title) : QString(), form);
        sections->addWidget(section);
        return *section;
    };

    addSwitch(add("Startup"), "openAtLogin", "Open Calmora at login", &AppSettings::openAtLogin,
              &AppSettings::setOpenAtLogin);
    addUpdates(add("Updates"));
    addSwitch(add("Sounds"), "playSounds", "Play sound on quit", &AppSettings::playSounds,
              &AppSettings::setPlaySounds);

    FormSection& protection = add("Protection");
    addSwitch(protection, "neverQuitMusicApps", "Never quit music apps",
              &AppSettings::neverQuitMusicApps, &AppSettings::setNeverQuitMusicApps);
    addSwitch(protection, "deselectAppsByDefault", "Deselect apps by default",
              &AppSettings::deselectAppsByDefault, &AppSettings::setDeselectAppsByDefault);

    add("Never-Quit List").addRow(new NeverQuitListEditor(settings_, platform_, [this] {
        showAddAppSheet();
    }));

    FormSection& extras = add("Extras");
    addSwitch(extras, "includeFinderWindows", "Include Finder in app list",
              &AppSettings::includeFinderWindows, &AppSettings::setIncludeFinderWindows);
    addSwitch(extras, "viewBackgroundApps", "View background apps",
              &AppSettings::viewBackgroundApps, &AppSettings::setViewBackgroundApps);
    SwitchRow* group = addSwitch(extras, "groupBackgroundInstances", "Group background instances",
                                 &AppSettings::groupBackgroundInstances,
                                 &AppSettings::setGroupBackgroundInstances);
    bindings_.emplace_back([this, group] { group->setEnabled(settings_.viewBackgroundApps()); });

    addDisplay(add("Display"));

    auto* mode =
        new PickerRow(uiText("Default quit mode"), options(quitModes), [this](std::int64_t value) {
            settings_.setDefaultQuitMode(static_cast<QuitMode>(value));
        });
    mode->picker().setObjectName("defaultQuitMode");
    add("Quit").addRow(mode);
    bindings_.emplace_back(
        [this, mode] { mode->setValue(static_cast<std::int64_t>(settings_.defaultQuitMode())); });

    addAutoQuit(add("Auto Quit"));

    auto* resetRow = new QWidget;
    auto* reset = new BorderedButton(uiText("Reset All Settings"), TextStyle::body, resetRow);
    reset->setObjectName("resetAllSettings");
    reset->setWordWrap();
    connect(reset, &QAbstractButton::clicked, this, [this] { settings_.resetToDefaults(); });
    auto* resetLayout = new QHBoxLayout(resetRow);
    resetLayout->setContentsMargins(metrics::rowInset, metrics::rowInset, metrics::rowInset,
                                    metrics::rowInset);
    resetLayout->addWidget(reset);
    resetLayout->addStretch(1);
    add(nullptr).addRow(resetRow);
    sections->addStretch(1);
}

SwitchRow* GeneralSettingsView::addSwitch(FormSection& section, const char* name, const char* title,
                                          bool (AppSettings::*get)() const,
                                          void (AppSettings::*set)(bool)) {
    auto* row = new SwitchRow(uiText(title));
    row->setObjectName(name);
    connect(row, &QCheckBox::clicked, this,
            [this, set](bool isOn) { std::invoke(set, settings_, isOn); });
    bindings_.emplace_back([this, row, get] { row->setChecked((settings_.*get)()); });
    section.addRow(row);
    return row;
}

void GeneralSettingsView::addUpdates(FormSection& section) {
    auto* row = new SwitchRow(uiText("Automatically check for updates"));
    row->setObjectName("automaticallyChecksForUpdates");
    const auto show = [this, row] { row->setChecked(updater_.automaticallyChecksForUpdates()); };
    show();
    connect(row, &QCheckBox::clicked, this, [this, show](bool isOn) {
        updater_.setAutomaticallyChecksForUpdates(isOn);
        show();
    });
    section.addRow(row);
    if (const auto reason = updater_.unavailableReason()) {
        auto* explanation =
            new Paragraph(uiText(reason->c_str()), TextStyle::caption, ThemeColor::secondary);
        explanation->setObjectName("updatesUnavailable");
        explanation->setContentsMargins(metrics::rowInset, metrics::rowPadding, metrics::rowInset,
                                        metrics::rowPadding);
        section.addRow(explanation);
        row->setEnabled(false);
        row->setToolTip(explanation->text());
    }
}

void GeneralSettingsView::addDisplay(FormSection& section) {
    auto* sort = new PickerRow(uiText("Sort by"), options(sortOrders), [this](std::int64_t value) {
        settings_.setSortOrder(static_cast<SortOrder>(value));
    });
    sort->picker().setObjectName("sortOrder");
    section.addRow(sort);
    auto* resources = new PickerRow(
        uiText("Show resources"), options(resourceDisplays), [this](std::int64_t value) {
            settings_.setResourceDisplay(static_cast<ResourceDisplay>(value));
        });
    resources->picker().setObjectName("resourceDisplay");
    section.addRow(resources);
    bindings_.emplace_back([this, sort, resources] {
        sort->setValue(static_cast<std::int64_t>(settings_.sortOrder()));
        resources->setValue(static_cast<std::int64_t>(settings_.resourceDisplay()));
    });
}

void GeneralSettingsView::addAutoQuit(FormSection& section) {
    addSwitch(section, "autoQuitEnabled", "Auto-quit inactive apps", &AppSettings::autoQuitEnabled,
              &AppSettings::setAutoQuitEnabled);
    auto* after = new PickerRow(uiText("After"), options(idleMinutes), [this](std::int64_t value) {
        settings_.setAutoQuitMinutes(value);
    });
    after->picker().setObjectName("autoQuitMinutes");
    section.addRow(after);
    bindings_.emplace_back([this, after] {
        after->setValue(settings_.autoQuitMinutes());
        after->setEnabled(settings_.autoQuitEnabled());
    });
}

void GeneralSettingsView::refresh() {
    for (const auto& binding : bindings_) {
        binding();
    }
}

void GeneralSettingsView::showAddAppSheet() {
    if (std::exchange(showingAddAppSheet_, true)) {
        return;
    }
    auto* sheet = new AddAppSheet(settings_, platform_, window());
    connect(sheet, &QDialog::finished, this, [this] { showingAddAppSheet_ = false; });
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

} // namespace calmora
