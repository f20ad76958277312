#pragma once

#include "support/Subscription.h"

namespace calmora {

class AppSettings;
class LoginItem;

/// Keeps the login item as the preference openAtLogin says, for as long as it lives. Main thread.
class OpenAtLogin {
  public:
    /// First sets the preference to what the login item really is, which may have been changed
    /// elsewhere; from then on carries each change of the preference over. Both arguments must
    /// outlive it.
    OpenAtLogin(AppSettings& settings, LoginItem& loginItem);

  private:
    /// Puts the preference back when the login item cannot follow. That is a change again, which
    /// is not carried over: two failures in turn would never end.
    void carryOver();

    AppSettings& settings_;
    LoginItem& loginItem_;
    bool isPuttingBack_ = false;
    Subscription change_;
};

} // namespace calmora
