#pragma once

namespace calmora {

/// Filters the input to the program's windows.
class InputGate {
  public:
    virtual ~InputGate() = default;

    /// Discards clicks and keys that are queued but not delivered. Call after work that blocked the
    /// main loop: what the user aimed at may have moved.
    virtual void discardQueuedInput() = 0;
};

} // namespace calmora
