// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>

namespace calmora {

/// refresh() over the workspace of Linux: 50 processes with a window each among N real ones. The
/// window system and the bus are in memory. The floor is naming the processes of the machine,
/// once for each of the two lists. The processes were first seen `age` ago; young
/// ones are looked at again, because they may still turn into another program.
void refreshOverTheRealWorkspace(benchmark::State& state, std::chrono::seconds age);

} // namespace calmora
