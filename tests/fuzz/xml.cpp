// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/Accelerator.h"
#include "updates/ReleaseReader.h"

#include <cstdint>

using namespace calmora;

/// The list of releases, and the window manager's configuration.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    static_cast<void>(readReleases(text, {"de_DE", "de"}));
    for (const Accelerator& accelerator : openboxAccelerators(text)) {
        static_cast<void>(qtKey(accelerator));
    }
    static_cast<void>(gtkAccelerator(text));
    return 0;
}
