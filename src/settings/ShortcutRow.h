// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Recorder.h"
#include "platform/HotKeys.h"

#include <QWidget>

#include <optional>
#include <string>

class QLabel;

namespace calmora {

class PairRow;
class Paragraph;
struct ProgramShortcut;

/// One of the program's shortcuts in the settings: its recorder, and below it what the desktop does
/// with it, or a line for the desktop's configuration with a button that copies it.
class ShortcutRow final : public QWidget {
  public:
    /// `environment` must outlive the row.
    ShortcutRow(const RecorderEnvironment& environment, const ProgramShortcut& shortcut,
                QWidget* parent = nullptr);

    /// Shows the hint, and why nothing can be recorded, as a key of the texts.
    void update(const HotKeyHint& hint, const std::optional<std::string>& unavailable);

  private:
    Recorder* recorder_;
    Paragraph* note_;
    PairRow* copy_;
    QLabel* line_;
};

} // namespace calmora
