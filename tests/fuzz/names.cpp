// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"
#include "platform/linux/identity/SyntheticIdentity.h"
#include "support/ShownName.h"
#include "updates/FeedAddress.h"
#include "updates/Release.h"

#include <cstdint>
#include <cstdlib>

using namespace calmora;

/// Names, addresses and versions of others, with what must hold for any of them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string shown = shownName(text);
    const std::string line = displayLine(text);
    const std::string_view one = text.substr(0, size / 2);
    const std::string_view other = text.substr(size / 2);
    const bool isOrdered = (compareVersions(one, other) < 0) == (compareVersions(other, one) > 0);
    if (shownName(shown) != shown || displayLine(line) != line || identifierWord(text).empty() ||
        shown.find('\n') != std::string::npos || compareVersions(one, one) != 0 || !isOrdered) {
        std::abort();
    }
    static_cast<void>(isWebPage(text));
    static_cast<void>(isLoopback(text));
    static_cast<void>(isVersion(text));
    const std::string words[] = {std::string(one), std::string(other)};
    static_cast<void>(parseCommandLine(words));
    return 0;
}
