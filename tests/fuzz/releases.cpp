// SPDX-License-Identifier: MIT
#include "updates/ReleaseReader.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static_cast<void>(
        calmora::readReleases({reinterpret_cast<const char*>(data), size}, {"de_DE", "de"}));
    return 0;
}
