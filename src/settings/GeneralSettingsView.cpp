#include "settings/GeneralSettingsView.h"

#include "platform/Updater.h"
#include "settings/AddAppSheet.h"
#include "settings/AppSettings.h"
#include "settings/NeverQuitListEditor.h"
#include "widgets/BorderedButton.h"
#include "widgets/DisplayText.h"
#include "widgets/FormArea.h"
#include "widgets/FormMetrics.h"
#include "widgets/FormSection.h"
#include "widgets/Paragraph.h"
#include "widgets/PickerRow.h"
#include "widgets/SwitchRow.h"

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
    Choice{"Name (A-Z)", SortOrder::alphabetical},
    Choice{"CPU Usage", SortOrder::cpuUsage},
    Choice{"Memory Usage", SortOrder::memoryUsage},
};

constexpr std::array resourceDisplays{
    Choice{"CPU Only", ResourceDisplay::cpuOnly},
    Choice{"Memory Only", ResourceDisplay::memoryOnly},
    Choice{"Both", ResourceDisplay::both},
    Choice{"None", ResourceDisplay::none},
};

constexpr std::array quitModes{
    Choice{"Normal", QuitMode::normal},
    Choice{"Force", QuitMode::force},
};

constexpr std::array idleMinutes{
    Choice{"5 minutes", 5},   Choice{"10 minutes", 10}, Choice{"15 minutes", 15},
    Choice{"30 minutes", 30}, Choice{"1 hour", 60},     Choice{"2 hours", 120},
    Choice{"4 hours", 240},   Choice{"8 hours", 480},
};

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
    changes_ = settings_.observeAny([this] { refresh(); });
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

    addSwitch(add("Startup"), settings_.openAtLogin, "Open Calmora at login");
    addUpdates(add("Updates"));
    addSwitch(add("Sounds"), settings_.playSounds, "Play sound on quit");

    FormSection& protection = add("Protection");
    addSwitch(protection, settings_.neverQuitMusicApps, "Never quit music apps");
    addSwitch(protection, settings_.deselectAppsByDefault, "Deselect apps by default");

    add("Never-Quit List").addRow(new NeverQuitListEditor(settings_, platform_, [this] {
        showAddAppSheet();
    }));

    FormSection& extras = add("Extras");
    addSwitch(extras, settings_.includeFinderWindows, "Include Finder in app list");
    addSwitch(extras, settings_.viewBackgroundApps, "View background apps");
    QWidget* group =
        addSwitch(extras, settings_.groupBackgroundInstances, "Group background instances");

    FormSection& display = add("Display");
    addPicker(display, settings_.sortOrder, "Sort by", sortOrders);
    addPicker(display, settings_.resourceDisplay, "Show resources", resourceDisplays);

    addPicker(add("Quit"), settings_.defaultQuitMode, "Default quit mode", quitModes);

    FormSection& autoQuit = add("Auto Quit");
    addSwitch(autoQuit, settings_.autoQuitEnabled, "Auto-quit inactive apps");
    QWidget* after = addPicker(autoQuit, settings_.autoQuitMinutes, "After", idleMinutes);

    bindings_.emplace_back([this, group, after] {
        group->setEnabled(settings_.viewBackgroundApps());
        after->setEnabled(settings_.autoQuitEnabled());
    });

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

QWidget* GeneralSettingsView::addSwitch(FormSection& section, Preference<bool>& preference,
                                        const char* title) {
    auto* row = new SwitchRow(uiText(title));
    row->setObjectName(preference.key());
    connect(row, &QCheckBox::clicked, this, [&preference](bool isOn) { preference.set(isOn); });
    bindings_.emplace_back([row, &preference] { row->setChecked(preference()); });
    section.addRow(row);
    return row;
}

template <typename Value, typename Choices>
QWidget* GeneralSettingsView::addPicker(FormSection& section, Preference<Value>& preference,
                                        const char* title, const Choices& choices) {
    std::vector<PickerOption> options;
    for (const auto& choice : choices) {
        options.push_back({uiText(choice.title), static_cast<std::int64_t>(choice.value)});
    }
    auto* row = new PickerRow(uiText(title), options, [&preference](std::int64_t value) {
        preference.set(static_cast<Value>(value));
    });
    row->picker().setObjectName(preference.key());
    bindings_.emplace_back(
        [row, &preference] { row->setValue(static_cast<std::int64_t>(preference())); });
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
