#pragma once

#include "platform/Image.h"
#include "settings/CheckForUpdatesViewModel.h"
#include "support/Subscription.h"

#include <QWidget>

#include <optional>
#include <string>

namespace calmora {

class Updater;

/// The About pane of the settings window: icon, name, version and a button to check for updates.
class AboutSettingsView final : public QWidget {
  public:
    static constexpr int iconSide = 96;

    /// `updater` must outlive the pane. An icon that cannot be drawn takes no space;
    /// without a version the pane shows "1.0.0".
    AboutSettingsView(Updater& updater, const std::optional<Image>& icon,
                      const std::optional<std::string>& version, QWidget* parent = nullptr);

  private:
    CheckForUpdatesViewModel checkForUpdatesViewModel_;
    Subscription changes_;
};

} // namespace calmora
