#include "app/HotKeyManager.h"

#include "settings/ProgramShortcuts.h"

#include <utility>

namespace calmora {

void HotKeyManager::registerShortcuts() {
    using Callback = std::function<void()> HotKeyManager::*;
    const std::pair<const char*, Callback> rows[] = {
        {ProgramShortcuts::activateMenu, &HotKeyManager::onActivateMenu},
        {ProgramShortcuts::quitAll, &HotKeyManager::onQuitAll},
        {ProgramShortcuts::forceQuitAll, &HotKeyManager::onForceQuitAll},
    };
    for (const auto& [rawName, callback] : rows) {
        shortcuts_.onKeyDown(shortcuts_.name(rawName),
                             [weak = std::weak_ptr(self_), callback = callback] {
                                 const auto self = weak.lock();
                                 // A copy, because the callback may be replaced while it runs.
                                 if (const auto run = self ? (**self).*callback : nullptr) {
                                     run();
                                 }
                             });
    }
}

} // namespace calmora
