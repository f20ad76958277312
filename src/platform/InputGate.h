#pragma once

namespace calmora {

/// Stands between the user's hands and the program's windows.
class InputGate {
  public:
    virtual ~InputGate() = default;

    /// Discards the clicks and keys that were made up to now and not yet delivered. To be called
    /// after work that blocked the main loop: what was aimed at may have moved meanwhile.
    virtual void discardQueuedInput() = 0;
};

} // namespace calmora
