// SPDX-License-Identifier: MIT
#include "platform/desktop/hotkeys/DesktopHotKeys.h"

#include "platform/desktop/hotkeys/HotKeyRoute.h"
#include "platform/desktop/hotkeys/KdeHotKeys.h"
#include "platform/desktop/hotkeys/PortalHotKeys.h"

namespace calmora {

std::unique_ptr<HotKeys> makeDesktopHotKeys(const DesktopHotKeysSurroundings& surroundings) {
    const HotKeyFacts facts = readHotKeyFacts(surroundings.sessionBus.isConnected());
    switch (hotKeyRoute(facts)) {
    case HotKeyRoute::grabs:
        return nullptr;
    case HotKeyRoute::kde:
        return std::make_unique<KdeHotKeys>(surroundings);
    default:
        return std::make_unique<PortalHotKeys>(surroundings, facts);
    }
}

} // namespace calmora
