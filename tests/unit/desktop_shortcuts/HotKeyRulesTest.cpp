// SPDX-License-Identifier: MIT
#include "fakes/FakeKeys.h"
#include "platform/desktop/hotkeys/HotKeyRoute.h"
#include "platform/desktop/hotkeys/HotKeyTable.h"
#include "platform/desktop/shortcuts/DesktopShortcuts.h"

namespace calmora {
namespace {

TEST(HotKeyRules, ChooseTheWayOfTheSession) {
    using enum HotKeyRoute;
    const std::pair<HotKeyFacts, HotKeyRoute> rows[] = {
        {{false, true, "KDE", false, true}, grabs},
        {{true, true, "KDE", false, true}, kde},
        {{true, true, "X-Distribution:KDE", false, false}, kde},
        {{true, false, "KDE", false, false}, otherConfiguration},
        {{true, true, "KDEX", false, false}, otherConfiguration},
        {{true, true, "GNOME", false, true}, portal},
        {{true, true, "sway", true, true}, portal},
        {{true, true, "sway:wlroots", false, false}, swayConfiguration},
        {{true, true, "", true, false}, swayConfiguration},
        {{true, true, "labwc:wlroots", false, false}, otherConfiguration},
    };
    for (const auto& [facts, expected] : rows) {
        EXPECT_EQ(hotKeyRoute(facts), expected) << facts.currentDesktop;
    }
}

TEST(HotKeyRules, NameKeysAsEachDesktopDoes) {
    FakeKeyboardLayout layout;
    layout.characters = {{6, "y"}, {12, "q"}, {27, "ß"}, {39, "ä"}, {43, ","}, {69, "+"}};
    const KeyNames names(layout);

    struct Row {
        HotKeyCombination keys;
        std::string sway;
        std::string portal;
        std::optional<std::uint32_t> qt;
    };

    const Row rows[] = {
        {{12, 0x1800}, "bindsym Mod1+Ctrl+q exec run", "CTRL+ALT+q", 0x0C000051},
        {{6, 0x1B00},
         "bindsym Mod4+Mod1+Ctrl+Shift+y exec run",
         "CTRL+ALT+SHIFT+LOGO+y",
         0x1E000059},
        {{39, 0x100}, "bindsym Mod4+adiaeresis exec run", "LOGO+adiaeresis", 0x100000C4},
        {{27, 0x100}, "bindsym Mod4+ssharp exec run", "LOGO+ssharp", 0x100000DF},
        {{43, 0x1000}, "bindsym Ctrl+comma exec run", "CTRL+comma", 0x0400002C},
        {{111, 0}, "bindsym F12 exec run", "F12", 0x0100003B},
        {{49, 0x100}, "bindsym Mod4+space exec run", "LOGO+space", 0x10000020},
        {{123, 0x100}, "bindsym Mod4+Left exec run", "LOGO+Left", 0x11000012},
        // Keypad, whose names change with Num Lock; and no key at all.
        {{69, 0x100}, "bindcode Mod4+86 exec run", "LOGO+KP_Add", {}},
        {{63, 0x100}, "", "", {}},
    };
    for (const Row& row : rows) {
        const Accelerator keys{row.keys.modifiers, names.name(row.keys.keyCode)};
        EXPECT_EQ(swayLine(keys, row.keys, "run"), row.sway);
        EXPECT_EQ(portalTrigger(keys), row.portal);
        EXPECT_EQ(qtKey(keys), row.qt) << row.sway;
    }
}

TEST(HotKeyRules, FireAHeldKeyOnceAndOnlyWhenAllowed) {
    bool mayAct = true;
    std::string heard;
    HotKeyTable table([&] { return mayAct; });
    const Subscription handler = table.setHandler([&](const HotKeyEvent& event) {
        heard += event.kind == HotKeyEventKind::hotKeyPressed ? '+' : '-';
        return HotKeyStatus::success;
    });
    const HotKeyCombination one{1, 0x100};
    const HotKeyCombination two{2, 0x100};
    Subscription first = table.add(one, {1, 1}, [&] { heard += 'x'; });
    const auto report = [&](std::initializer_list<HotKeyCombination> presses) {
        heard.clear();
        for (const HotKeyCombination keys : presses) {
            table.press(keys);
        }
        return heard;
    };
    EXPECT_EQ(report({one}), "") << "nobody has asked for events";
    table.release(one);
    table.setReporting(true);
    EXPECT_EQ(report({one, one, one}), "+");
    table.release(one);
    table.release(one);
    EXPECT_EQ(heard, "+-");
    EXPECT_EQ(report({two}), "");
    mayAct = false;
    EXPECT_EQ(report({one}), "");
    mayAct = true;
    EXPECT_EQ(report({one}), "") << "still held since a time when it could not act";
    table.release(one);
    EXPECT_EQ(heard, "") << "a release without its press";
    first.reset();
    EXPECT_EQ(report({one}), "");
    EXPECT_TRUE(table.combinations().empty());
}

} // namespace
} // namespace calmora
