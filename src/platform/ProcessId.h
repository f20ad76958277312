#pragma once

#include <cstdint>

namespace calmora {

/// A process id; values below 1 name no process.
using ProcessId = std::int32_t;

} // namespace calmora
