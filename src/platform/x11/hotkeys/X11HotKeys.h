// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"

#include <memory>

namespace calmora {

class X11Keyboard;

/// Hot keys by passive grabs of the X server. A hot key is a physical key: it fires under any
/// layout and with any lock on. A combination is taken when another client has a grab of the core
/// protocol or of XInput 2, which do not see each other.
class X11HotKeys final : public HotKeys {
  public:
    /// `keyboard` must outlive the hot keys.
    explicit X11HotKeys(X11Keyboard& keyboard);
    ~X11HotKeys() override;

    X11HotKeys(const X11HotKeys&) = delete;
    X11HotKeys& operator=(const X11HotKeys&) = delete;

    [[nodiscard]] std::optional<std::string> unavailableReason() const override;
    [[nodiscard]] HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                    HotKeyIdentifier identifier) override;
    [[nodiscard]] Subscription installEventHandler(Handler handler) override;
    void addEventTypes(HotKeyEventTypes types) override;
    void removeEventTypes(HotKeyEventTypes types) override;

  private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace calmora
