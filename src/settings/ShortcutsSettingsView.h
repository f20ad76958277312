// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/ShortcutRecorder.h"
#include "support/Subscription.h"

#include <QWidget>

#include <string>
#include <utility>
#include <vector>

namespace calmora {

class Paragraph;
class ShortcutRow;

/// The Shortcuts pane: a recorder for each of the program's shortcuts, and how shortcuts work here.
class ShortcutsSettingsView final : public QWidget {
  public:
    /// `environment` must outlive the pane.
    explicit ShortcutsSettingsView(const RecorderEnvironment& environment,
                                   QWidget* parent = nullptr);

  private:
    void update();

    const RecorderEnvironment& environment_;
    /// By the names of the shortcuts.
    std::vector<std::pair<std::string, ShortcutRow*>> rows_;
    Paragraph* note_;
    Subscription shortcutChanges_;
    Subscription hintChanges_;
};

} // namespace calmora
