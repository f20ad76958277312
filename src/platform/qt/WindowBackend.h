// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <functional>
#include <optional>
#include <string>

namespace calmora {

class HotKeys;
class KeyboardLayout;
class TransientWindows;
class WindowSystem;

/// Everything that depends on the window system of the session. What it returns lives as long as
/// the backend. Main thread.
class WindowBackend {
  public:
    virtual ~WindowBackend() = default;

    /// The windows of the running applications.
    [[nodiscard]] virtual WindowSystem& windows() = 0;

    /// Keys that act wherever the focus is.
    [[nodiscard]] virtual HotKeys& hotKeys() = 0;

    /// What the keys of the keyboard write.
    [[nodiscard]] virtual KeyboardLayout& keyboardLayout() = 0;

    /// How our own popover, alerts and menus appear. Needs the QApplication.
    [[nodiscard]] virtual TransientWindows& transientWindows() = 0;

    /// Discards presses of hot keys that have not acted yet.
    virtual void discardKeyPresses() = 0;

    /// A token by which a program that is started now may bring its window to the front, as its
    /// startup notification id or xdg-activation token; empty where there is none.
    [[nodiscard]] virtual std::string activationToken() { return {}; }

    /// The name of the window manager; empty when there is none, or it has no name.
    [[nodiscard]] virtual std::string windowManagerName() = 0;

    /// The name of the theme that the window system's settings give; empty when nobody says.
    [[nodiscard]] virtual std::string themeName() const = 0;

    /// The size of the desktop's font that the window system's settings give, in points; absent
    /// when nobody says.
    [[nodiscard]] virtual std::optional<double> fontPoints() const = 0;

    /// Called when another theme or font is named.
    [[nodiscard]] virtual Subscription onLookChanged(std::function<void()> handler) = 0;

    /// What the list of applications lacks here, in English; empty when it is complete.
    [[nodiscard]] virtual std::string listLimitation() const = 0;

    /// What is never quit automatically here, and why, in English; empty when nothing is excepted.
    [[nodiscard]] virtual std::string autoQuitLimitation() const = 0;
};

} // namespace calmora
