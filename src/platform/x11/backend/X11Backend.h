// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/windows/CompositeWindowSystem.h"
#include "platform/qt/WindowBackend.h"
#include "platform/qt/window/TransientWindows.h"
#include "platform/x11/X11WindowSystem.h"
#include "platform/x11/XSettings.h"
#include "platform/x11/hotkeys/X11HotKeys.h"
#include "platform/x11/hotkeys/X11Keyboard.h"
#include "platform/x11/hotkeys/X11KeyboardLayout.h"

#include <functional>
#include <memory>
#include <optional>

namespace calmora {

class EventPoll;

/// The window system of X11 sessions, and of X11 programs on Wayland (Xwayland). Without an X
/// server it lists no windows and has no hot keys.
class X11Backend final : public WindowBackend {
  public:
    using MakeHotKeys = std::function<std::unique_ptr<HotKeys>(KeyboardLayout&)>;

    /// Connects to the display that the environment names. `compositor` knows the windows of the
    /// Wayland session that the X server belongs to; null when there is none, or nobody tells.
    /// `events` must outlive the backend.
    /// `makeHotKeys` gives the hot keys of the desktop; null where we grab keys. `readKeymap` reads
    /// the keymap where there is no X server.
    explicit X11Backend(EventPoll& events, std::unique_ptr<WindowSystem> compositor = nullptr,
                        const MakeHotKeys& makeHotKeys = nullptr,
                        X11KeyboardLayout::ReadKeymap readKeymap = nullptr);

    [[nodiscard]] WindowSystem& windows() override {
        return compositor_ ? static_cast<WindowSystem&>(windows_) : x11Windows_;
    }

    [[nodiscard]] HotKeys& hotKeys() override {
        return desktopHotKeys_ ? *desktopHotKeys_ : static_cast<HotKeys&>(hotKeys_);
    }

    [[nodiscard]] KeyboardLayout& keyboardLayout() override { return layout_; }

    [[nodiscard]] TransientWindows& transientWindows() override { return *transientWindows_; }

    void discardKeyPresses() override { keyboard_.discardKeyPresses(); }

    [[nodiscard]] std::string activationToken() override;
    [[nodiscard]] std::string windowManagerName() override;

    [[nodiscard]] std::string themeName() const override { return settings_.themeName(); }

    [[nodiscard]] std::optional<double> fontPoints() const override {
        return namedFontPoints(settings_.fontName());
    }

    [[nodiscard]] Subscription onLookChanged(std::function<void()> handler) override {
        return settings_.onChanged(std::move(handler));
    }

    [[nodiscard]] std::string listLimitation() const override;
    [[nodiscard]] std::string autoQuitLimitation() const override;

  private:
    X11WindowSystem x11Windows_;
    std::unique_ptr<WindowSystem> compositor_;
    /// Of both; unused without a compositor.
    CompositeWindowSystem windows_;
    X11Keyboard keyboard_;
    X11HotKeys hotKeys_;
    X11KeyboardLayout layout_;
    XSettings settings_;
    std::unique_ptr<HotKeys> desktopHotKeys_;
    std::unique_ptr<TransientWindows> transientWindows_;
    /// How many tokens were given.
    unsigned tokens_ = 0;
};

} // namespace calmora
