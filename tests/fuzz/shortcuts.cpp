// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/Accelerator.h"

#include <cstdint>

using namespace calmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    static_cast<void>(openboxAccelerators(text));
    for (const auto& read : {gtkAccelerator(text), openboxAccelerator(text)}) {
        if (read) {
            static_cast<void>(qtKey(*read));
        }
    }
    return 0;
}
