#pragma once

#include "KeyboardShortcuts/ShortcutRecorder.h"

#include <QWidget>

namespace calmora {

/// The Shortcuts pane: a recorder for each of the program's shortcuts.
class ShortcutsSettingsView final : public QWidget {
  public:
    /// `environment` must outlive the pane.
    explicit ShortcutsSettingsView(const RecorderEnvironment& environment,
                                   QWidget* parent = nullptr);
};

} // namespace calmora
