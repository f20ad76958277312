// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/JsonMembers.h"

#include <cstdint>
#include <cstdlib>

using namespace calmora;

/// What was read must be written so that it is read again, and not grow by more than its layout.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto members = readMembers(text);
    if (!members) {
        return 0;
    }
    const std::string written = writtenMembers(*members);
    constexpr std::size_t layout = 10;
    constexpr std::size_t longestEscape = 6;
    if (readMembers(written) != members ||
        written.size() > longestEscape * size + layout * (members->size() + 1)) {
        std::abort();
    }
    for (const auto& [key, value] : *members) {
        const auto read = valueOfMember(value);
        if (read && valueOfMember(writtenMember(*read)) != read) {
            std::abort();
        }
    }
    return 0;
}
