// SPDX-License-Identifier: MIT
#include "settings/ShortcutRow.h"

#include "settings/ProgramMenu.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Form.h"
#include "widgets/Labels.h"
#include "widgets/Theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QVBoxLayout>

namespace calmora {
namespace {

QString noteFor(const HotKeyHint& hint) {
    switch (hint.kind) {
    case HotKeyHint::Kind::assigned:
        return uiText("Key on this desktop: %@", displayName(hint.text));
    case HotKeyHint::Kind::unassigned:
        return uiText("The desktop has assigned no key.");
    default:
        return {};
    }
}

} // namespace

ShortcutRow::ShortcutRow(const RecorderEnvironment& environment, const ProgramShortcut& shortcut,
                         QWidget* parent)
    : QWidget(parent), recorder_(new Recorder(environment, uiText(shortcut.label),
                                              environment.shortcuts.name(shortcut.name), nullptr)),
      note_(new Paragraph({}, TextStyle::caption, ThemeColor::secondary)), copy_(new PairRow),
      line_(new QLabel) {
    recorder_->setFont(Theme::font(TextStyle::body));
    note_->setContentsMargins(metrics::rowInset, 0, metrics::rowInset, metrics::rowPadding);
    QFont font = Theme::font(TextStyle::caption);
    font.setFamily("monospace");
    line_->setFont(font);
    line_->setWordWrap(true);
    line_->setTextFormat(Qt::PlainText);
    line_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* button = new Button(uiText("Copy"), TextStyle::caption);
    button->setAccessibleName(uiText("Copy") + ' ' + uiText(shortcut.label));
    copy_->setParts(line_, button);
    QObject::connect(button, &QPushButton::clicked, this,
                     [this] { QGuiApplication::clipboard()->setText(line_->text()); });

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(recorder_);
    column->addWidget(note_);
    column->addWidget(copy_);
}

void ShortcutRow::update(const HotKeyHint& hint, const std::optional<std::string>& unavailable) {
    recorder_->setEnabled(!unavailable);
    recorder_->setToolTip(unavailable ? uiText(unavailable->c_str()) : QString());
    if (unavailable) {
        recorder_->control().setToolTip(recorder_->toolTip());
    }
    note_->setText(noteFor(hint));
    note_->setVisible(!note_->text().isEmpty());
    const bool isToCopy = hint.kind == HotKeyHint::Kind::toCopy && !hint.text.empty();
    line_->setText(isToCopy ? QString::fromStdString(hint.text) : QString());
    copy_->setVisible(isToCopy);
}

} // namespace calmora
