#pragma once

namespace calmora {

/// The program among what the desktop starts when the user logs in.
class LoginItem {
  public:
    virtual ~LoginItem() = default;

    /// Whether the program is started at login, as things stand now: the user may have changed it
    /// elsewhere.
    [[nodiscard]] virtual bool isEnabled() const = 0;

    /// Adds the program to, or takes it off, what is started at login. False when that failed;
    /// then nothing has changed.
    virtual bool setEnabled(bool isEnabled) = 0;
};

} // namespace calmora
