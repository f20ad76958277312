// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/DesktopEntry.h"
#include "platform/linux/xdg/ExecKey.h"
#include "platform/linux/xdg/KeyFile.h"

#include <array>
#include <cstdint>

using namespace calmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::array<std::string, 2> locales{"de_DE", "de"};
    static_cast<void>(parseDesktopEntry(text, locales));
    walkKeyFile(text, [](const KeyFileLine& line) {
        static_cast<void>(unescapedValue(line.value));
        static_cast<void>(splitList(line.value));
        static_cast<void>(execKey(execWords(line.value)));
        return true;
    });
    return 0;
}
