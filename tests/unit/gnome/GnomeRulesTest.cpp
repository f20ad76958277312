// SPDX-License-Identifier: MIT
#include "platform/gnome/ExtensionRules.h"
#include "platform/gnome/ShellWindow.h"
#include "platform/gnome/StandIns.h"
#include "platform/linux/xdg/DesktopEntryIndex.h"

namespace calmora {
namespace {

TEST(GnomeRules, MakeWindowsOfWhatTheShellTells) {
    const ShellWindow dialog{.id = 7,
                             .type = 4,
                             .canClose = true,
                             .parent = 6,
                             .desktopId = "org.gnome.TextEditor.desktop",
                             .className = "org.gnome.TextEditor",
                             .gtkBusName = ":1.7",
                             .gtkObjectPath = "/org/gnome/TextEditor"};
    EXPECT_EQ(topLevelWindow(dialog), (TopLevelWindow{.applicationId = "org.gnome.TextEditor",
                                                      .className = "org.gnome.TextEditor",
                                                      .gtkBusName = ":1.7",
                                                      .gtkObjectPath = "/org/gnome/TextEditor",
                                                      .kdeDesktopFile = dialog.desktopId,
                                                      .type = WindowType::dialog,
                                                      .isModal = true,
                                                      .canBeAsked = true}));

    const struct {
        ShellWindow window;
        WindowType type;
        bool canBeAsked;
        std::optional<std::uint32_t> x11Id;
        bool mayBeX11;
    } rows[] = {
        {{.type = 0, .canClose = true}, WindowType::normal, true, {}, false},
        {{.type = 0, .canClose = true, .parent = 6}, WindowType::dialog, true, {}, false},
        {{.type = 7, .canClose = true}, WindowType::utility, true, {}, false},
        {{.type = 0}, WindowType::normal, false, {}, false},
        // The shell would ask its own panels, and kill the client of a deaf X11 window.
        {{.type = 1, .canClose = true}, WindowType::desktop, false, {}, false},
        {{.type = 2, .canClose = true}, WindowType::dock, false, {}, false},
        {{.type = 8, .canClose = true}, WindowType::other, false, {}, false},
        {{.isX11 = true, .x11Id = 9, .canClose = true}, WindowType::normal, false, 9, false},
        {{.isX11 = true, .canClose = true}, WindowType::normal, false, {}, true},
    };

    for (const auto& row : rows) {
        const TopLevelWindow window = topLevelWindow(row.window);
        EXPECT_EQ(window.type, row.type) << row.window.type;
        EXPECT_EQ(window.canBeAsked, row.canBeAsked) << row.window.type;
        EXPECT_EQ(window.x11Id, row.x11Id);
        EXPECT_EQ(window.mayBeX11, row.mayBeX11);
    }
}

TEST(GnomeRules, ListClientsWithVisibleEntriesWhereNobodyTellsOfWindows) {
    std::vector<DesktopEntry> entries;
    for (const auto& [id, program] : {std::pair("org.gnome.Text-Editor", "gnome-text-editor"),
                                      {"org.gnome.Portal", "portal"},
                                      {"org.gnome.Terminal", "gnome-terminal"},
                                      {"galculator", "galculator"}}) {
        auto entry = parseDesktopEntry(
            std::string("[Desktop Entry]\nType=Application\nName=x\nExec=") + program, {});
        entry->id = id;
        entry->isVisible = entry->id != "org.gnome.Portal";
        entries.push_back(*entry);
    }
    const DesktopEntryIndex index(entries);
    const SocketClient clients[] = {{2, {"gnome-text-editor"}},
                                    {3, {"portal"}},
                                    {4, {"galculator"}},
                                    {5, {"unknown"}},
                                    {6, {"gnome-text-editor"}},
                                    {7, {"sandboxed"}, {"flatpak-galculator", "galculator"}},
                                    {8, {"portal-server"}, {"org.gnome.Portal"}},
                                    {9, {"terminal-server"}}};
    const OwnedName names[] = {{"org.gnome.Text-Editor", ":1.2", 2},
                               {"org.gnome.Portal", ":1.8", 8},
                               {"org.gnome.Terminal", ":1.9", 9}};
    const auto windows = standIns(clients, index, names);
    ASSERT_EQ(windows.size(), 5U);
    EXPECT_EQ(windows[0].process, 2);
    EXPECT_EQ(windows[0].gtkBusName, ":1.2");
    EXPECT_EQ(windows[0].gtkObjectPath, "/org/gnome/Text_Editor");
    EXPECT_EQ(windows[1].process, 4);
    EXPECT_EQ(windows[2].gtkObjectPath, "") << "another process has the name";
    EXPECT_NE(windows[0].id, windows[2].id);
    EXPECT_EQ(windows[3].process, 7) << "started from an entry, under another name";
    EXPECT_EQ(windows[4].gtkBusName, ":1.9") << "a server that has an entry's id on the bus";
    const TopLevelWindow window = topLevelWindow(windows[1]);
    EXPECT_TRUE(window.isStandIn && !window.canBeAsked && window.type == WindowType::normal);
}

TEST(GnomeRules, EnableTheExtensionOnlyAsTheUserWants) {
    using State = DesktopExtension::State;
    const std::string older = extensionFor("43.9");
    const std::string newer = extensionFor("48.7");
    EXPECT_EQ(extensionFor("44.0"), older);
    EXPECT_EQ(extensionFor("45.beta"), newer);
    EXPECT_NE(older, newer);
    for (const char* version : {"", "42.1", "3.38.4", "x"}) {
        EXPECT_EQ(extensionFor(version), "") << version;
    }

    const ExtensionFacts usual{.shellVersion = "48.7", .isInstalled = true, .isKnown = true};
    const auto with = [&](auto change) {
        ExtensionFacts facts = usual;
        change(facts);
        return extensionVerdict(facts);
    };
    const auto settle = [](auto& facts) { facts.answer = ExtensionAnswer::settled; };
    const auto await = [](auto& facts) { facts.answer = ExtensionAnswer::awaitsLogin; };
    const auto isNew = [](auto& facts) { facts.isKnown = false; };
    const auto upgrade = [&](auto& facts) { facts.enabled = {"x", older}; };
    EXPECT_EQ(with([](auto&) {}), (ExtensionVerdict{State::offered}));
    EXPECT_EQ(with([](auto& facts) { facts.isAttached = true; }),
              (ExtensionVerdict{State::running}));
    EXPECT_EQ(with([](auto& facts) { facts.isInstalled = false; }), ExtensionVerdict{});
    EXPECT_EQ(with([](auto& facts) { facts.shellVersion = "42"; }), ExtensionVerdict{});
    EXPECT_EQ(with(isNew), (ExtensionVerdict{State::offered}));
    EXPECT_EQ(with(settle), (ExtensionVerdict{State::declined}));
    EXPECT_EQ(with([&](auto& facts) { facts.enabled = {newer}; }), ExtensionVerdict{});
    EXPECT_EQ(with([&](auto& facts) { facts.enabled = {newer}, isNew(facts); }),
              (ExtensionVerdict{State::awaitsLogin}));
    EXPECT_EQ(with(await), (ExtensionVerdict{State::none, true}));
    EXPECT_EQ(with([&](auto& facts) { await(facts), isNew(facts); }),
              (ExtensionVerdict{State::awaitsLogin}));
    // The desktop was upgraded.
    EXPECT_EQ(with([&](auto& facts) { upgrade(facts), settle(facts); }),
              (ExtensionVerdict{State::none, true}));
    EXPECT_EQ(with([&](auto& facts) { upgrade(facts), settle(facts), facts.disabled = {newer}; }),
              (ExtensionVerdict{State::declined}));
    // An administrator's word counts more than any of that.
    EXPECT_EQ(with([&](auto& facts) { upgrade(facts), await(facts), facts.mayEnable = false; }),
              (ExtensionVerdict{State::forbidden}));
}

} // namespace
} // namespace calmora
