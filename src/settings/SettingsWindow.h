// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace calmora {

class LocalizedStrings;

/// The frame of the settings. Deletes itself when it is closed.
class SettingsWindow final : public QWidget {
  public:
    explicit SettingsWindow(const LocalizedStrings& strings);

    /// Fills the window, which takes its size from it, with `content`, which it owns.
    void setContent(QWidget* content);
};

} // namespace calmora
