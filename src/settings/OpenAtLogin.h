#pragma once

#include "support/Subscription.h"

namespace calmora {

class AppSettings;
class LoginItem;

/// Applies the preference openAtLogin to the login item for as long as this object exists.
/// Main thread.
class OpenAtLogin {
  public:
    /// First sets the preference to the state of the login item, which may have been changed
    /// elsewhere; then applies each change. Both arguments must outlive this object.
    OpenAtLogin(AppSettings& settings, LoginItem& loginItem);

  private:
    /// Resets the preference if the login item cannot be changed. That change is not applied again,
    /// which avoids an endless loop of failures.
    void apply();

    AppSettings& settings_;
    LoginItem& loginItem_;
    /// The last known state of the login item.
    bool isEnabled_;
    Subscription change_;
};

} // namespace calmora
