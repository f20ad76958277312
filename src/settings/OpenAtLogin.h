// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"
#include "settings/AppSettings.h"
#include "support/Subscription.h"

namespace calmora {

/// Applies the preference openAtLogin to the login item for as long as this object exists.
/// Main thread.
class OpenAtLogin {
  public:
    /// First sets the preference to the state of the login item, which may have been changed
    /// elsewhere; then applies each change. Both arguments must outlive this object.
    OpenAtLogin(AppSettings& settings, LoginItem& loginItem)
        : settings_(settings), loginItem_(loginItem), isEnabled_(loginItem.isEnabled()) {
        settings_.openAtLogin.set(isEnabled_);
        change_ = settings_.openAtLogin.observe([this] { apply(); });
    }

  private:
    /// Resets the preference if the login item cannot be changed. That change is not applied again,
    /// which avoids an endless loop of failures.
    void apply() {
        const bool wanted = settings_.openAtLogin();
        if (wanted == isEnabled_) {
            return; // The preference was reset.
        }
        if (loginItem_.setEnabled(wanted)) {
            isEnabled_ = wanted;
        } else {
            settings_.openAtLogin.set(isEnabled_);
        }
    }

    AppSettings& settings_;
    LoginItem& loginItem_;
    /// The last known state of the login item.
    bool isEnabled_;
    Subscription change_;
};

} // namespace calmora
