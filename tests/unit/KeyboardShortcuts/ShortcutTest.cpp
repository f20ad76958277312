#include "unit/KeyboardShortcuts/ShortcutsFixture.h"

#include "KeyboardShortcuts/SpecialKey.h"

#include <set>

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
    for (std::uint32_t type = 0; type < 32; ++type) {
        const auto shortcut =
            Shortcut::fromEvent({static_cast<InputEventType>(type), 126, held, false, {}});
        const bool isKey = type == 10 || type == 11;
        EXPECT_EQ(shortcut, isKey ? std::optional(Shortcut{126, control | option | shift | command})
                                  : std::nullopt)
            << type;
    }
    EXPECT_EQ(Shortcut::of(Key::k, {ModifierFlags::command | ModifierFlags::function}),
              (Shortcut{40, command | function}));
}

TEST(ShortcutCoding, WritesTwoMembersInOrder) {
    EXPECT_EQ(encodeShortcut({40, 768}), R"({"carbonKeyCode":40,"carbonModifiers":768})");
    const Shortcut odd{-1, 9007199254740993};
    EXPECT_EQ(decodeShortcut(encodeShortcut(odd)), odd) << "no integer is rounded";
}

TEST(ShortcutCoding, ReadsNothingElse) {
    const std::pair<std::string, std::optional<Shortcut>> rows[] = {
        {R"({"carbonModifiers":768,"carbonKeyCode":40})", Shortcut{40, 768}},
        {"\n{ \"carbonKeyCode\" : 40 , \"carbonModifiers\" : 768 }\t", Shortcut{40, 768}},
        {R"({"carbonKeyCode":99999999999,"carbonModifiers":-1})", Shortcut{99999999999, -1}},
        {R"({"carbonKeyCode":40})", {}},
        {R"({"carbonKeyCode":"40","carbonModifiers":768})", {}},
        {R"({"carbonKeyCode":40.5,"carbonModifiers":768})", {}},
        {R"({"carbonKeyCode":null,"carbonModifiers":768})", {}},
        {R"({"carbonKeyCode":9223372036854775808,"carbonModifiers":768})", {}},
        {R"({"carbonKeyCode":40,"carbonModifiers":768)", {}},
        {R"({"carbonKeyCode":40,"carbonModifiers":768}x)", {}},
        {"false", {}},
        {"", {}},
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
    layout.characters[44] = "";

    const struct {
        Shortcut shortcut;
        const char* description;
        const char* spoken;
    } rows[] = {
        {{40, control | option | shift | command}, "⌃⌥⇧⌘K", "Control+Alt+Shift+Super+K"},
        {{40, 768}, "⇧⌘K", "Shift+Super+K"},
        {{49, command}, "⌘Space", "Super+Space"},
        {{87, option}, "⌥5\u20E3", "Alt+Keypad 5"},
        {{105, shift}, "⇧F13", "Shift+F13"},
        {{123, function | 1}, "🌐\uFE0E←", "Fn+Left"},
        {{43, control}, "⌃,", "Control+,"},
        {{114, command}, "⌘?\u20DD", "Super+Insert"},
        {{41, 0}, "ö", "ö"},
        {{42, command}, "⌘\uFFFD", "Super+\uFFFD"},
        {{44, command}, "⌘\uFFFD", "Super+\uFFFD"},
        {{-7, command}, "⌘\uFFFD", "Super+\uFFFD"},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(shortcuts.text().description(row.shortcut), row.description);
        EXPECT_EQ(shortcuts.text().spokenDescription(row.shortcut), row.spoken);
    }
}

TEST_F(ShortcutTextTest, SpecialKeysAreNeverTranslated) {
    std::set<std::string> texts;
    for (std::int64_t code = -1; code < 200; ++code) {
        layout.characters[code] = "x";
        const std::string written = shortcuts.text().description({code, 0});
        EXPECT_EQ(written == "X", !specialKey(code)) << code;
        texts.insert(written);
    }
    EXPECT_EQ(texts.size(), 54U);
}

TEST_F(ShortcutTextTest, MenusUseOtherTexts) {
    const std::pair<std::int64_t, std::optional<std::string>> rows[] = {
        {40, "k"},        {49, " "}, {122, "\uF704"}, {90, "\uF717"}, {36, "↩"},
        {114, "?\u20DD"}, {87, {}},  {71, {}},        {999, {}},
    };
    for (const auto& [code, expected] : rows) {
        EXPECT_EQ(shortcuts.text().menuKeyText({code, command}), expected) << code;
    }
}

} // namespace
} // namespace calmora
