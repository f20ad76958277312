// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/CompositorKeymap.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include <fuzzer/FuzzedDataProvider.h>
#include <sys/mman.h>
#include <unistd.h>

using namespace calmora;

namespace {

struct CFree {
    void operator()(char* text) const { std::free(text); }
};

/// A keymap as compositors write it; its second layout has no letters of ASCII.
std::string writtenKeymap(xkb_context* context) {
    const xkb_rule_names names{.rules = "evdev",
                               .model = "pc105",
                               .layout = "us,ru,fr",
                               .variant = "intl,,",
                               .options = nullptr};
    const XkbKeymap keymap(xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    const std::unique_ptr<char, CFree> text(
        keymap ? xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1) : nullptr);
    if (!text) {
        std::abort();
    }
    return std::string(text.get()) + '\0';
}

} // namespace

/// The keymap that a compositor gives, in a file that is shorter or longer than it says, and any
/// key of it. What stands in the text is the library's to read, in every program of the
/// session; 1.5 crashes on some texts that no compositor writes, as `key <AC01> { ,[ a ] };`.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const XkbContext context = makeXkbContext();
    static const std::string text = writtenKeymap(context.get());
    static const FileDescriptor file(memfd_create("keymap", MFD_CLOEXEC));
    FuzzedDataProvider input(data, size);
    const std::size_t written =
        input.ConsumeBool() ? text.size() : input.ConsumeIntegralInRange<std::size_t>(0, 2 << 20);
    const std::size_t announced = input.ConsumeBool() ? written : input.ConsumeIntegral<unsigned>();
    const std::size_t kept = std::min(written, text.size());
    if (ftruncate(file.get(), 0) != 0 ||
        pwrite(file.get(), text.data(), kept, 0) != static_cast<ssize_t>(kept) ||
        ftruncate(file.get(), static_cast<off_t>(written)) != 0) {
        return 0;
    }
    const XkbKeymap keymap = keymapIn(file, announced, context.get());
    if ((announced > written || announced == 0) && keymap) {
        std::abort();
    }
    const auto layout =
        keymap ? asciiLayout(*keymap, input.ConsumeIntegral<xkb_layout_index_t>()) : std::nullopt;
    while (layout && input.remaining_bytes() > 0) {
        const auto key = input.ConsumeIntegral<X11KeyCode>();
        const auto level = input.ConsumeIntegral<xkb_level_index_t>();
        static_cast<void>(characterOf(*keymap, *layout, key, level));
        static_cast<void>(isDead(*keymap, *layout, key, level));
    }
    return 0;
}
