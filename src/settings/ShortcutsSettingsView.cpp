#include "settings/ShortcutsSettingsView.h"

#include "KeyboardShortcuts/Recorder.h"
#include "settings/ProgramShortcuts.h"
#include "widgets/DisplayText.h"
#include "widgets/FormArea.h"
#include "widgets/FormMetrics.h"
#include "widgets/FormSection.h"
#include "widgets/Paragraph.h"

#include <QVBoxLayout>

#include <optional>
#include <string>
#include <utility>

namespace calmora {

ShortcutsSettingsView::ShortcutsSettingsView(const RecorderEnvironment& environment,
                                             QWidget* parent)
    : QWidget(parent) {
    setObjectName("shortcutsSettings");
    auto* form = new QWidget;
    auto* layout = new QVBoxLayout(form);
    layout->setContentsMargins(metrics::formMargin, metrics::formMargin, metrics::formMargin,
                               metrics::formMargin);
    layout->setSpacing(metrics::sectionGap);

    const std::optional<std::string> unavailable = environment.shortcuts.unavailableReason();
    std::string hintText = "Shortcuts work from any application.";
    if (unavailable || !environment.limitation.empty()) {
        hintText = unavailable.value_or(environment.limitation);
    }

    auto* global = new FormSection(uiText("Global Shortcuts"), form);
    const std::pair<const char*, const char*> rows[] = {
        {"Show/Hide Calmora:", ProgramShortcuts::activateMenu},
        {"Quit all:", ProgramShortcuts::quitAll},
        {"Force quit all:", ProgramShortcuts::forceQuitAll},
    };
    for (const auto& [label, rawName] : rows) {
        auto* row = new Recorder(environment, uiText(label), environment.shortcuts.name(rawName),
                                 nullptr, global);
        row->setObjectName(rawName);
        row->setFont(Theme::font(TextStyle::body));
        row->setContentsMargins(metrics::rowInset, metrics::rowPadding, metrics::rowInset,
                                metrics::rowPadding);
        if (unavailable) {
            row->setEnabled(false);
            row->setToolTip(uiText(unavailable->c_str()));
            row->control().setToolTip(row->toolTip());
        }
        global->addRow(row);
    }
    layout->addWidget(global);

    auto* hint = new FormSection(QString(), form);
    auto* text =
        new Paragraph(uiText(hintText.c_str()), TextStyle::caption, ThemeColor::secondary, hint);
    text->setContentsMargins(metrics::rowInset, metrics::rowPadding, metrics::rowInset,
                             metrics::rowPadding);
    hint->addRow(text);
    layout->addWidget(hint);
    layout->addStretch();

    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(new FormArea(form));
}

} // namespace calmora
