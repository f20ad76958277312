#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"

#include <functional>
#include <memory>

namespace calmora {

/// Binds the program's three shortcuts to callbacks, which may be replaced at any time; an empty
/// one does nothing. Main thread.
class HotKeyManager {
  public:
    /// `shortcuts` must outlive the manager.
    explicit HotKeyManager(KeyboardShortcuts& shortcuts) : shortcuts_(shortcuts) {}

    HotKeyManager(const HotKeyManager&) = delete;
    HotKeyManager& operator=(const HotKeyManager&) = delete;

    /// Runs the callbacks from now on when their shortcuts are pressed. Call once.
    void registerShortcuts();

    std::function<void()> onActivateMenu;
    std::function<void()> onQuitAll;
    std::function<void()> onForceQuitAll;

  private:
    KeyboardShortcuts& shortcuts_;
    std::shared_ptr<HotKeyManager*> self_ = std::make_shared<HotKeyManager*>(this);
};

} // namespace calmora
