#include "unit/KeyboardShortcuts/ShortcutsFixture.h"

namespace calmora {
namespace {

constexpr std::int64_t control = CarbonModifiers::control;
constexpr std::int64_t option = CarbonModifiers::option;
constexpr std::int64_t shift = CarbonModifiers::shift;
constexpr std::int64_t command = CarbonModifiers::command;
constexpr std::int64_t function = CarbonModifiers::function;

TEST(Modifiers, ConvertBitByBit) {
    const std::pair<std::int64_t, std::uint32_t> rows[] = {
        {0x1000, 0x40000},   {0x800, 0x80000},    {0x200, 0x20000}, {0x100, 0x100000},
        {0x20000, 0x800000}, {0x21B00, 0x9E0000}, {0, 0},
    };
    for (const auto& [carbon, flags] : rows) {
        EXPECT_EQ(modifierFlags(carbon).mask, flags);
        EXPECT_EQ(carbonModifiers({flags}), carbon);
    }
    EXPECT_EQ(modifierFlags(~0x21B00LL).mask, 0U);
    EXPECT_EQ(carbonModifiers({~0x9E0000U}), 0);
}

TEST(Shortcut, OfKeyEventsHasNoFunctionModifier) {
    const ModifierFlags held{0xFFFFFFFFU};
    EXPECT_EQ(Shortcut::fromEvent({InputEventType::keyDown, 126, held, false, {}}),
              (Shortcut{126, control | option | shift | command}));
    EXPECT_FALSE(Shortcut::fromEvent({InputEventType::leftMouseUp, 126, held, false, {}}));
    EXPECT_EQ(Shortcut::of(Key::k, {ModifierFlags::command | ModifierFlags::function}),
              (Shortcut{40, command | function}));
}

TEST(ShortcutCoding, WritesTwoMembersAndReadsNothingElse) {
    EXPECT_EQ(encodeShortcut({40, 768}), R"({"carbonKeyCode":40,"carbonModifiers":768})");
    const Shortcut odd{-1, 9007199254740993};
    EXPECT_EQ(decodeShortcut(encodeShortcut(odd)), odd) << "no integer is rounded";
    const std::pair<std::string, std::optional<Shortcut>> rows[] = {
        {"\n{ \"carbonKeyCode\" : 40 , \"carbonModifiers\" : 768 }\t", Shortcut{40, 768}},
        {R"({"carbonKeyCode":40})", {}},
        {R"({"carbonKeyCode":"40","carbonModifiers":768})", {}},
        {R"({"carbonKeyCode":40.5,"carbonModifiers":768})", {}},
        {R"({"carbonKeyCode":9223372036854775808,"carbonModifiers":768})", {}},
        {R"({"carbonKeyCode":40,"carbonModifiers":768)", {}},
        {"\xFF\xFE", {}},
        {"{\"carbonKeyCode\":40,\"carbonModifiers\":768,\"\xC3\":0}", {}},
        {std::string(10'000'000, '['), {}},
        {std::string(10'000'000, ' ') + R"({"carbonKeyCode":40,"carbonModifiers":768})", {}},
    };
    for (const auto& [json, expected] : rows) {
        EXPECT_EQ(decodeShortcut(json), expected) << json.substr(0, 80);
    }
}

using ShortcutTextTest = ShortcutsFixture;

TEST_F(ShortcutTextTest, WritesModifiersThenTheKey) {
    layout.characters[41] = "ö";
    layout.characters[42] = "ab";

    const struct {
        Shortcut shortcut;
        const char* description;
        const char* spoken;
    } rows[] = {
        {{40, control | option | shift | command}, "⌃⌥⇧⌘K", "Control+Alt+Shift+Super+K"},
        {{49, command}, "⌘Space", "Super+Space"},
        {{87, option}, "⌥5\u20E3", "Alt+Keypad 5"},
        {{123, function | 1}, "🌐\uFE0E←", "Fn+Left"},
        {{114, command}, "⌘?\u20DD", "Super+Insert"},
        {{41, 0}, "ö", "ö"},
        {{42, command}, "⌘\uFFFD", "Super+\uFFFD"},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(shortcuts.text().description(row.shortcut), row.description);
        EXPECT_EQ(shortcuts.text().spokenDescription(row.shortcut), row.spoken);
    }
}

} // namespace
} // namespace calmora
