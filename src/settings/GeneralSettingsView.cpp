// SPDX-License-Identifier: MIT
#include "settings/GeneralSettingsView.h"

#include "platform/DesktopExtension.h"
#include "platform/Updater.h"
#include "settings/AddAppSheet.h"
#include "settings/AppSettings.h"
#include "settings/ExtraSettings.h"
#include "settings/NeverQuitListEditor.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Form.h"
#include "widgets/Labels.h"

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

/// clang deduces aggregates from version 17 on only.
template <typename Value>
Choice(const char*, Value) -> Choice<Value>;

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

void addLimitation(FormSection& section, const std::string& text) {
    if (!text.empty()) {
        section.addNote(uiText(text.c_str()));
    }
}

/// A row with one button at its start.
QWidget* buttonRow(QWidget* button) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(metrics::rowInset, metrics::rowInset, metrics::rowInset,
                               metrics::rowInset);
    layout->addWidget(button);
    layout->addStretch(1);
    return row;
}

} // namespace

GeneralSettingsView::GeneralSettingsView(AppSettings& settings, Updater& updater,
                                         LoginItem& loginItem, const Platform& platform,
                                         DesktopLimitations limitations, AutoQuitOptions autoQuit,
                                         DesktopExtension* extension, QWidget* parent)
    : QWidget(parent), settings_(settings), updater_(updater), platform_(platform),
      limitations_(std::move(limitations)), autoQuit_(std::move(autoQuit)),
      openAtLogin_(settings, loginItem) {
    auto* form = new Form;
    if (extension) {
        addExtension(form->addSection(uiText("GNOME")), *extension);
    }
    build(*form);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(form);
    refresh();
    changes_ = settings_.observeAny([this] { refresh(); });
    extraChanges_ = autoQuit_.extras.observeAny([this] { refresh(); });
    usability_ = settings_.onUsabilityChanged([this] { refresh(); });
}

void GeneralSettingsView::build(Form& form) {
    const auto add = [&](const char* title) -> FormSection& {
        return form.addSection(uiText(title));
    };

    addUsability(form.addSection());
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
    addLimitation(extras, limitations_.list);

    FormSection& display = add("Display");
    addPicker(display, settings_.sortOrder, "Sort by", sortOrders);
    addPicker(display, settings_.resourceDisplay, "Show resources", resourceDisplays);

    FormSection& quit = add("Quit");
    addPicker(quit, settings_.defaultQuitMode, "Default quit mode", quitModes);
    quit.addNote(uiText("Calmora always starts with polite quitting; hold Alt in the popover to "
                        "force."));

    addAutoQuit(add("Auto Quit"));
    addReset(form.addSection());
    bindings_.emplace_back([this, group] { group->setEnabled(settings_.viewBackgroundApps()); });
}

void GeneralSettingsView::addAutoQuit(FormSection& section) {
    addSwitch(section, settings_.autoQuitEnabled, "Auto-quit inactive apps");
    QWidget* after = addPicker(section, settings_.autoQuitMinutes, "After", idleMinutes);
    bindings_.emplace_back([this, after] { after->setEnabled(settings_.autoQuitEnabled()); });
    addSparingOffer(section);
    addLimitation(section, limitations_.autoQuit);
    auto* options = new Button(uiText("Options and Forecast…"), TextStyle::body);
    options->setObjectName("autoQuitOptions");
    options->setWordWrap();
    connect(options, &QAbstractButton::clicked, this, [this] { autoQuit_.openSheet(*window()); });
    section.addRow(buttonRow(options));
}

void GeneralSettingsView::addSparingOffer(FormSection& section) {
    auto* row = new QWidget;
    row->setObjectName("sparingOffer");
    auto* decline = new Button(uiText("Not now"), TextStyle::caption);
    decline->setObjectName("declineSparing");
    auto* accept = new Button(uiText("Switch on"), TextStyle::caption);
    accept->setObjectName("acceptSparing");
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metrics::rowSpacing);
    buttons->addStretch(1);
    buttons->addWidget(decline);
    buttons->addWidget(accept);
    auto* column = new QVBoxLayout(row);
    column->setContentsMargins(metrics::rowInset, metrics::rowInset, metrics::rowInset,
                               metrics::rowInset);
    column->setSpacing(metrics::rowSpacing);
    column->addWidget(new Paragraph(uiText("Shall auto-quit leave alone what is in use, such as an "
                                           "app that plays sound, and tell you a minute before it "
                                           "quits an app?"),
                                    TextStyle::caption, ThemeColor::secondary));
    column->addLayout(buttons);
    section.addRow(row);

    ExtraSettings& extras = autoQuit_.extras;
    connect(decline, &QAbstractButton::clicked, this,
            [&extras] { extras.wasSparingOffered.set(true); });
    connect(accept, &QAbstractButton::clicked, this, [&extras] {
        extras.wasSparingOffered.set(true);
        extras.sparesWhatIsInUse.set(true);
    });
    bindings_.emplace_back([this, row, &extras] {
        row->setVisible(settings_.autoQuitEnabled() && !extras.wasSparingOffered() &&
                        !extras.sparesWhatIsInUse());
    });
}

void GeneralSettingsView::addReset(FormSection& section) {
    auto* reset = new Button(uiText("Reset All Settings"), TextStyle::body);
    reset->setObjectName("resetAllSettings");
    reset->setWordWrap();
    connect(reset, &QAbstractButton::clicked, this, [this] {
        settings_.resetToDefaults();
        autoQuit_.extras.resetToDefaults();
    });
    section.addRow(buttonRow(reset));
}

QWidget* GeneralSettingsView::addSwitch(FormSection& section, Preference<bool>& preference,
                                        const char* title) {
    auto* row = new SwitchRow(uiText(title));
    row->setObjectName(preference.key());
    connect(row, &QCheckBox::clicked, this, [&preference] { preference.set(!preference()); });
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
    connect(row, &QCheckBox::clicked, this, [this, show] {
        updater_.setAutomaticallyChecksForUpdates(!updater_.automaticallyChecksForUpdates());
        show();
    });
    section.addRow(row);
    if (const auto reason = updater_.unavailableReason()) {
        const QString text = uiText(reason->c_str());
        section.addNote(text)->setObjectName("updatesUnavailable");
        row->setEnabled(false);
        row->setToolTip(text);
    }
}

void GeneralSettingsView::addUsability(FormSection& section) {
    Paragraph* note = section.addNote({});
    note->setObjectName("settingsNotSaved");
    bindings_.emplace_back([this, note, section = &section] {
        const auto file = settings_.unusableFile();
        note->setText(uiText("Changes last until you quit Calmora: %@ cannot be used.",
                             displayName(file.value_or(std::string()))));
        section->setVisible(file.has_value());
    });
}

void GeneralSettingsView::addExtension(FormSection& section, DesktopExtension& extension) {
    auto* row = new PairRow;
    auto* text = new Paragraph({}, TextStyle::body, ThemeColor::primary);
    text->setObjectName("extensionState");
    auto* button = new Button(uiText("Enable"), TextStyle::body);
    button->setObjectName("enableExtension");
    row->setParts(text, button);
    section.addRow(row);
    connect(button, &QAbstractButton::clicked, this, [&extension] { extension.enable(); });
    const auto show = [&section, &extension, text, button] {
        using State = DesktopExtension::State;
        const State state = extension.state();
        const char* told = state == State::running ? "The extension for GNOME is switched on."
                           : state == State::awaitsLogin
                               ? "Log out and in once so that GNOME finds Calmora’s extension."
                           : state == State::forbidden
                               ? "Extensions of GNOME are switched off on this system."
                               : nullptr;
        text->setText(uiText(told ? told : extension.purpose().c_str()));
        button->setVisible(!told);
        section.setVisible(state != State::none);
    };
    extensionChanges_ = extension.onChanged(show);
    extension.refresh();
    show();
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
