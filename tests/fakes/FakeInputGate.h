#pragma once

#include "platform/InputGate.h"

namespace calmora {

/// Counts how often queued input was discarded.
class FakeInputGate final : public InputGate {
  public:
    void discardQueuedInput() override { ++discards; }

    int discards = 0;
};

} // namespace calmora
