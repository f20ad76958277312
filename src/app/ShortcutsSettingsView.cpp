#include "app/ShortcutsSettingsView.h"

#include "KeyboardShortcuts/Recorder.h"
#include "app/HotKeyManager.h"
#include "settings/form/FormMetrics.h"
#include "settings/form/FormSection.h"
#include "settings/form/Paragraph.h"
#include "ui/DisplayText.h"

#include <QVBoxLayout>

#include <utility>

namespace calmora {

ShortcutsSettingsView::ShortcutsSettingsView(const RecorderEnvironment& environment,
                                             QWidget* parent)
    : QWidget(parent) {
    setObjectName("shortcutsSettings");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(metrics::formMargin, metrics::formMargin, metrics::formMargin,
                               metrics::formMargin);
    layout->setSpacing(metrics::sectionGap);

    auto* global = new FormSection(uiText("Global Shortcuts"), this);
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
        global->addRow(row);
    }
    layout->addWidget(global);

    auto* hint = new FormSection(QString(), this);
    auto* text = new Paragraph(uiText("Shortcuts work from any application."), TextStyle::caption,
                               ThemeColor::secondary, hint);
    text->setContentsMargins(metrics::rowInset, metrics::rowPadding, metrics::rowInset,
                             metrics::rowPadding);
    hint->addRow(text);
    layout->addWidget(hint);
    layout->addStretch();
}

} // namespace calmora
