#include "settings/ShortcutsSettingsView.h"

#include "KeyboardShortcuts/Recorder.h"
#include "settings/ProgramMenu.h"
#include "widgets/DisplayText.h"
#include "widgets/Form.h"
#include "widgets/Labels.h"

#include <QVBoxLayout>

#include <optional>
#include <string>
#include <utility>

namespace calmora {

ShortcutsSettingsView::ShortcutsSettingsView(const RecorderEnvironment& environment,
                                             QWidget* parent)
    : QWidget(parent) {
    setObjectName("shortcutsSettings");
    auto* form = new Form;
    const std::optional<std::string> unavailable = environment.shortcuts.unavailableReason();
    std::string hintText = "Shortcuts work from any application.";
    if (unavailable || !environment.limitation.empty()) {
        hintText = unavailable.value_or(environment.limitation);
    }

    FormSection& global = form->addSection(uiText("Global Shortcuts"));
    const std::pair<const char*, const char*> rows[] = {
        {"Show/Hide Calmora:", ProgramShortcuts::activateMenu},
        {"Quit all:", ProgramShortcuts::quitAll},
        {"Force quit all:", ProgramShortcuts::forceQuitAll},
    };
    for (const auto& [label, rawName] : rows) {
        auto* row =
            new Recorder(environment, uiText(label), environment.shortcuts.name(rawName), nullptr);
        row->setObjectName(rawName);
        row->setFont(Theme::font(TextStyle::body));
        row->setContentsMargins(metrics::rowInset, metrics::rowPadding, metrics::rowInset,
                                metrics::rowPadding);
        if (unavailable) {
            row->setEnabled(false);
            row->setToolTip(uiText(unavailable->c_str()));
            row->control().setToolTip(row->toolTip());
        }
        global.addRow(row);
    }
    form->addSection().addNote(uiText(hintText.c_str()));

    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(form);
}

} // namespace calmora
