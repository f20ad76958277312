// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/DesktopEntry.h"
#include "platform/linux/xdg/ExecKey.h"
#include "platform/linux/xdg/KeyFile.h"
#include "platform/linux/xdg/SessionAutostart.h"

#include <array>
#include <cstdint>
#include <cstdlib>

using namespace calmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::array<std::string, 2> locales{"de_DE", "de"};
    if (const auto entry = parseDesktopEntry(text, locales)) {
        // What nothing installed shares is the session's, however it is written.
        const auto words = execWords(entry->exec);
        const bool isNamed = !execKey(words).empty();
        if (SessionAutostart({&*entry, 1}, {}).starts(words, {}) != isNamed && isNamed) {
            std::abort();
        }
        static_cast<void>(SessionAutostart({&*entry, 1}, {&*entry, 1}).starts(words, {}));
        const auto launched = launchWords(*entry);
        if (launched && (launched->front().empty() || launched->size() < words.size())) {
            std::abort();
        }
    }
    walkKeyFile(text, [](const KeyFileLine& line) {
        static_cast<void>(unescapedValue(line.value));
        static_cast<void>(splitList(line.value));
        static_cast<void>(execKey(execWords(line.value)));
        return true;
    });
    return 0;
}
