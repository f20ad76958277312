// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "settings/ProgramMenu.h"

#include <functional>
#include <memory>
#include <utility>

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
    void registerShortcuts() {
        using Callback = std::function<void()> HotKeyManager::*;
        const std::pair<const char*, Callback> rows[] = {
            {ProgramShortcuts::activateMenu, &HotKeyManager::onActivateMenu},
            {ProgramShortcuts::quitAll, &HotKeyManager::onQuitAll},
            {ProgramShortcuts::forceQuitAll, &HotKeyManager::onForceQuitAll},
        };
        for (const auto& [rawName, callback] : rows) {
            shortcuts_.onKeyDown(shortcuts_.name(rawName),
                                 [weak = std::weak_ptr(self_), chosen = callback] {
                                     const auto self = weak.lock();
                                     // A copy, because the callback may be replaced while it runs.
                                     if (const auto run = self ? (**self).*chosen : nullptr) {
                                         run();
                                     }
                                 });
        }
    }

    std::function<void()> onActivateMenu;
    std::function<void()> onQuitAll;
    std::function<void()> onForceQuitAll;

  private:
    KeyboardShortcuts& shortcuts_;
    std::shared_ptr<HotKeyManager*> self_ = std::make_shared<HotKeyManager*>(this);
};

} // namespace calmora
