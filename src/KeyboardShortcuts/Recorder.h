#pragma once

#include "KeyboardShortcuts/RecorderCocoa.h"

#include <QWidget>

namespace calmora {

/// A recorder with its label, side by side: the label at the leading edge, the recorder at the
/// trailing one.
class Recorder final : public QWidget {
  public:
    /// `environment` must outlive the row. `title` is plain text.
    Recorder(const RecorderEnvironment& environment, const QString& title,
             KeyboardShortcuts::Name name, ShortcutRecorder::OnChange onChange,
             QWidget* parent = nullptr);

    [[nodiscard]] RecorderCocoa& control() { return *control_; }

  private:
    RecorderCocoa* control_;
};

} // namespace calmora
