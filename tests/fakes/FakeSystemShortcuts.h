#pragma once

#include "platform/SystemShortcuts.h"

namespace calmora {

/// A desktop with the shortcuts that it is given.
class FakeSystemShortcuts final : public SystemShortcuts {
  public:
    std::vector<SymbolicHotKey> copySymbolicHotKeys() override { return entries; }

    std::vector<SymbolicHotKey> entries;
};

} // namespace calmora
