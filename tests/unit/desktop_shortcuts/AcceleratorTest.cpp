#include "fakes/FakeKeys.h"
#include "platform/desktop/shortcuts/DesktopShortcuts.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

using Found = std::optional<Accelerator>;

TEST(Accelerator, ReadsBothSpellings) {
    const std::pair<const char*, Found> gtkRows[] = {
        {"<Primary><Alt>t", Accelerator{0x1800, "t"}},
        {"<Super>Above_Tab", Accelerator{0x100, "Above_Tab"}},
        {"<control><SHIFT>Left", Accelerator{0x1200, "Left"}},
        {"Print", Accelerator{0, "Print"}},
        {"<Hyper>a", {}},
        {"<Alt>", {}},
        {"<Alt", {}},
        {"", {}},
    };
    for (const auto& [text, expected] : gtkRows) {
        EXPECT_EQ(gtkAccelerator(text), expected) << text;
    }
    const std::pair<const char*, Found> openboxRows[] = {
        {"C-A-Left", Accelerator{0x1800, "Left"}},
        {"W-d", Accelerator{0x100, "d"}},
        {"S-A-minus", Accelerator{0xA00, "minus"}},
        {"F12", Accelerator{0, "F12"}},
        {"H-a", {}},
        {"", {}},
        {"A--", Accelerator{0x800, "-"}},
    };
    for (const auto& [text, expected] : openboxRows) {
        EXPECT_EQ(openboxAccelerator(text), expected) << text;
    }
}

TEST(Accelerator, ReadsKeysOfQt) {
    const std::pair<std::uint32_t, Found> rows[] = {
        {0x10000041, Accelerator{0x100, "U0041"}},
        {0x0E000000 + 0x01000012, Accelerator{0x1A00, "Left"}},
        {0x08000000 + 0x01000033, Accelerator{0x800, "F4"}},
        {0x080000E4, Accelerator{0x800, "U00E4"}},
        {0x08000000 + 0x01000085, {}}, // a key of which we know nothing
        {0x24000035, {}},              // keypad
        {0x04000000, {}},
        {0, {}},
    };
    for (const auto& [key, expected] : rows) {
        EXPECT_EQ(qtAccelerator(key), expected) << key;
    }
}

TEST(Accelerator, ReadsOpenboxFiles) {
    const std::vector<Accelerator> expected{{0x800, "F4"}, {0x100, "e"}, {0x1000, "g"}, {0, "F1"}};
    EXPECT_EQ(openboxAccelerators(R"(<?xml version="1.0"?><keyboard>
        <keybind key="A-F4"><action name="Close"/></keybind>
        <!-- <keybind key="A-F5"><action/></keybind> -->
        <keybind chroot="no" key='W-e
           C-g'><keybind key="C-c"><action key="x"/></keybind></keybind>
        <keybind key="H-x"/><keybind key="F1"/><keybinds key="F2"/><keybind></keybind>)"),
              expected);
    for (const char* broken : {"", "<", "<keybind key=\"A-F4", "<keybind key=", "<!-- <keybind"}) {
        EXPECT_LE(openboxAccelerators(broken).size(), 0U) << broken;
    }
}

TEST(Accelerator, ReadsXfceProperties) {
    const std::vector<XfceProperty> properties{
        {"/commands/default/<Alt>F1", {}},
        {"/commands/custom/override", true},
        {"/commands/custom/<Alt>F2", {}},
        {"/commands/custom/<Alt>F2/startup-notify", true},
        {"/xfwm4/default/<Alt>F4", {}},
        {"/xfwm4/custom/<Alt>F5", {}},
        {"/providers", {}},
    };
    EXPECT_EQ(xfceAccelerators(properties),
              (std::vector<Accelerator>{{0x800, "F2"}, {0x800, "F4"}}));
}

TEST(DesktopShortcuts, FindKeysByNameAndByLayout) {
    FakeKeyboardLayout layout;
    layout.characters[6] = "y"; // where a US keyboard has z
    const std::pair<const char*, std::optional<std::int64_t>> rows[] = {
        {"k", 40},           {"K", 40},     {"y", 6},      {"comma", 43},
        {"Left", 123},       {"left", 123}, {"space", 49}, {"Return", 36},
        {"Tab", 48},         {"F12", 111},  {"KP_5", {}},  {"Print", {}},
        {"no such key", {}}, {"", {}},      {"U0041", 0},  {"Above_Tab", 50},
    };
    const KeyNames names(layout);
    for (const auto& [name, expected] : rows) {
        EXPECT_EQ(names.keyCode(name), expected) << name;
    }
    DesktopShortcuts shortcuts(layout, {[] { return std::vector<Accelerator>{{0x800, "F4"}}; },
                                        [] { return std::vector<Accelerator>{{0, "Print"}}; }});
    EXPECT_EQ(shortcuts.copySymbolicHotKeys(),
              (std::vector<SymbolicHotKey>{{true, 118, 0x800}, {true, {}, 0}}));
}

} // namespace
} // namespace calmora
