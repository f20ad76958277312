// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "settings/CheckForUpdatesViewModel.h"
#include "support/Subscription.h"

#include <QString>
#include <QWidget>

#include <optional>
#include <string>

class QVBoxLayout;

namespace calmora {

class Updater;

/// The About pane of the settings window: icon, name, version and a button to check for updates.
class AboutSettingsView final : public QWidget {
  public:
    /// `updater` must outlive the pane. An icon that cannot be drawn takes no space;
    /// without a version the pane shows "1.0.0".
    AboutSettingsView(Updater& updater, const std::optional<Image>& icon,
                      const std::optional<std::string>& version, QWidget* parent = nullptr);

  private:
    CheckForUpdatesViewModel checkForUpdatesViewModel_;
    Subscription changes_;
};

/// Adds the program's icon with round corners, and its name, to a column. An icon that is absent
/// or cannot be drawn takes no space.
void addIconAndName(QVBoxLayout& column, const std::optional<Image>& icon);

/// The line with the version; "1.0.0" without one.
[[nodiscard]] QString versionText(const std::optional<std::string>& version);

} // namespace calmora
