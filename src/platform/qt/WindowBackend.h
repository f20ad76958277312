#pragma once

#include <string>

namespace calmora {

class HotKeys;
class KeyboardLayout;
class TransientWindows;
class WindowSystem;

/// Everything that depends on the window system of the session. Nothing else in the program knows
/// which one that is. What it returns lives as long as the backend. Main thread.
class WindowBackend {
  public:
    virtual ~WindowBackend() = default;

    /// The windows of the running applications.
    [[nodiscard]] virtual WindowSystem& windows() = 0;

    /// The keys that act wherever the keyboard focus is.
    [[nodiscard]] virtual HotKeys& hotKeys() = 0;

    /// What the keys of the keyboard write.
    [[nodiscard]] virtual KeyboardLayout& keyboardLayout() = 0;

    /// How our own popover, alerts and menus appear. Needs the QApplication.
    [[nodiscard]] virtual TransientWindows& transientWindows() = 0;

    /// Forgets the presses of hot keys that were made up to now and have not acted yet.
    virtual void discardKeyPresses() = 0;

    /// The name that the window manager gives itself; empty when there is none, or it has no name.
    [[nodiscard]] virtual std::string windowManagerName() = 0;

    /// What the list of applications lacks here, in English; empty when it is complete.
    [[nodiscard]] virtual std::string listLimitation() const = 0;

    /// What global shortcuts cannot do here, in English; empty when they work everywhere.
    [[nodiscard]] virtual std::string hotKeyLimitation() const = 0;
};

} // namespace calmora
