// SPDX-License-Identifier: MIT
#pragma once

#include "settings/Preference.h"

namespace calmora {

/// The preferences of what is off until the user switches it on. One instance, beside AppSettings.
/// Main thread.
class ExtraSettings final : public PreferenceTable {
  public:
    /// Reads every preference. `defaults` must outlive the settings.
    explicit ExtraSettings(UserDefaults& defaults) : PreferenceTable(defaults) {}

    /// Auto-quit leaves alone what is in use, and says a minute before what it will quit.
    Preference<bool> sparesWhatIsInUse{*this, "extra.sparesWhatIsInUse", false};

    /// The user was asked once whether to switch sparesWhatIsInUse on.
    Preference<bool> wasSparingOffered{*this, "extra.wasSparingOffered", false};

    /// The user's quits run side by side, rows say what stayed and why, and what ended can be
    /// started again.
    Preference<bool> quitsTogether{*this, "extra.quitsTogether", false};

    /// The user was asked once whether to switch quitsTogether on.
    Preference<bool> wasQuittingTogetherOffered{*this, "extra.wasQuittingTogetherOffered", false};
};

} // namespace calmora
