// SPDX-License-Identifier: MIT
#include "platform/wayland/KwinReport.h"
#include "platform/wayland/SwayTree.h"
#include "platform/x11/X11Icon.h"

#include <cstdint>
#include <cstring>
#include <vector>

using namespace calmora;

/// What compositors and the clients of an X server say of windows.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto views = parseSwayTree(text)) {
        for (const SwayView& view : *views) {
            static_cast<void>(swayDialogParent(view, *views, view.id));
        }
    }
    static_cast<void>(parseSwayWindowEvent(text));
    static_cast<void>(parseSwaySuccess(text));
    static_cast<void>(parseKwinReport(text));
    std::vector<std::uint32_t> words(size / sizeof(std::uint32_t) + 1);
    words.pop_back(); // Now it has an address.
    std::memcpy(words.data(), data, words.size() * sizeof(std::uint32_t));
    static_cast<void>(chooseIcon(words, 64));
    return 0;
}
