#pragma once

#include "platform/EventMonitor.h"
#include "support/Signal.h"

#include <utility>

namespace calmora {

/// Keyboard events made by hand: flags.emit({ModifierFlags::option}).
class FakeEventMonitor final : public EventMonitor {
  public:
    Subscription onModifierFlagsChanged(std::function<void(ModifierFlags)> handler) override {
        return flags.connect(std::move(handler));
    }

    Signal<ModifierFlags> flags;
};

} // namespace calmora
