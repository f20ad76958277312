#pragma once

#include <cstdint>

namespace calmora {

/// A process id as the kernel gives it: 32 bits, signed; values below 1 name no process.
using ProcessId = std::int32_t;

} // namespace calmora
