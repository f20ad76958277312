// SPDX-License-Identifier: MIT
#include "settings/ShortcutsSettingsView.h"

#include "platform/NotificationCenter.h"
#include "settings/ProgramMenu.h"
#include "settings/ShortcutRow.h"
#include "widgets/DisplayText.h"
#include "widgets/Form.h"
#include "widgets/Labels.h"

#include <QVBoxLayout>

#include <optional>

namespace calmora {

ShortcutsSettingsView::ShortcutsSettingsView(const RecorderEnvironment& environment,
                                             QWidget* parent)
    : QWidget(parent), environment_(environment) {
    setObjectName("shortcutsSettings");
    auto* form = new Form;
    FormSection& global = form->addSection(uiText("Global Shortcuts"));
    for (const ProgramShortcut& shortcut : programShortcuts) {
        auto* row = new ShortcutRow(environment, shortcut);
        row->setObjectName(shortcut.name);
        global.addRow(row);
        rows_.emplace_back(shortcut.name, row);
    }
    note_ = form->addSection().addNote({});
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(form);

    update();
    shortcutChanges_ = environment.notifications.observe(KeyboardShortcuts::shortcutByNameDidChange,
                                                         [this](auto&&) { update(); });
    hintChanges_ = environment.hotKeys.onHintsChanged([this] { update(); });
}

void ShortcutsSettingsView::update() {
    const std::optional<std::string> unavailable = environment_.shortcuts.unavailableReason();
    for (const auto& [name, row] : rows_) {
        row->update(environment_.hotKeys.hint(name), unavailable);
    }
    std::string note = unavailable.value_or(environment_.hotKeys.limitation());
    if (note.empty()) {
        note = "Shortcuts work from any application.";
    }
    note_->setText(uiText(note.c_str()));
}

} // namespace calmora
