#include "autoquit/IdlePolicy.h"

#include "autoquit/catalogue/LinuxAnnex.h"
#include "autoquit/catalogue/MusicPlayers.h"
#include "autoquit/catalogue/Words.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

namespace calmora {
namespace {

/// An installed entry with categories as in a desktop file.
InstalledApplication entry(const std::string& categories) {
    InstalledApplication installed;
    std::istringstream text(categories);
    for (std::string category; std::getline(text, category, ';');) {
        installed.categories.push_back(category);
    }
    return installed;
}

TEST(IdlePolicy, UsesTheCatalogueThenTheAnnexThenTheCategories) {
    InstalledApplication inTerminal = entry("Utility");
    inTerminal.needsTerminal = true;
    using enum IdleBehavior;
    for (const auto& [identifier, installed, expected] :
         std::vector<std::tuple<std::string, std::optional<InstalledApplication>, IdlePolicy>>{
             {"org.mozilla.firefox", entry("System"), {safeToQuit, false}},
             {"com.jetbrains.fleet", entry("System"), {cautious, false}},
             {"debian-xterm", entry(""), {neverQuit, true}},
             {"org.xfce.mousepad", entry("System"), {cautious, true}},
             {"org.gnome.baobab", entry("System;Filesystem"), {cautious, true}},
             {"xdaliclock", entry("Clock"), {safeToQuit, true}},
             {"debian-xterm.desktop", entry(""), {safeToQuit, true}},
             {"debian-xterm foot", entry(""), {safeToQuit, true}},
             {"Debian-xterm", entry("TerminalEmulator"), {neverQuit, true}},
             {"org.example.Hosted", inTerminal, {neverQuit, true}},
             // The annex is about installed applications.
             {"debian-xterm", std::nullopt, {safeToQuit, false}},
             {"exe:/usr/bin/Eterm.Eterm", std::nullopt, {neverQuit, true}},
             {"exe:/usr/bin/xcalc.xcalc", std::nullopt, {safeToQuit, false}},
         }) {
        EXPECT_EQ(idlePolicy(identifier, KnownApps::lookup(identifier), installed), expected)
            << identifier;
    }
}

// Categories of Debian's entries.
TEST(IdlePolicy, UsesTheStrictestCategory) {
    using enum IdleBehavior;
    for (const auto& [categories, expected] : std::vector<std::pair<std::string, IdleBehavior>>{
             {"System;TerminalEmulator;", neverQuit},
             {"Development;Utility;ConsoleOnly", neverQuit},
             {"Game;Emulator", neverQuit},
             {"KDE;Qt;Settings", neverQuit},
             {"Settings;HardwareSettings;Printing", neverQuit},
             {"Utility;Security", neverQuit},
             {"Utility;Archiving", neverQuit},
             {"Network;FileTransfer;P2P", neverQuit},
             {"Network;RemoteAccess", neverQuit},
             {"AudioVideo;DiscBurning", neverQuit},
             {"AudioVideo;Video;Recorder", neverQuit},
             {"Network;Telephony", neverQuit},
             {"Network;VideoConference;Chat", neverQuit},
             {"Utility;Clock", neverQuit},
             {"Office;Calendar", neverQuit},
             {"Utility;Accessibility;TextEditor", neverQuit},
             {"Network;Monitor", neverQuit},
             {"Office;Email", cautious},
             {"Network;InstantMessaging", cautious},
             {"Utility;TextEditor", cautious},
             {"Office;Viewer;Presentation", cautious},
             {"Electronics;Education", cautious},
             {"AudioVideo;Player", cautious},
             {"Graphics;Photography", cautious},
             {"Development", cautious},
             {"Network", cautious},
             {"Science;Math", cautious},
             {"Game;BoardGame", cautious},
             {"Office;Viewer;Graphics;2DGraphics", safeToQuit},
             {"Network;WebBrowser", safeToQuit},
             {"Network;Feed", safeToQuit},
             {"Office;Dictionary", safeToQuit},
             {"Utility;Calculator;Science;Math", safeToQuit},
             {"Education;Languages", safeToQuit},
             {"Utility;system;X-TerminalEmulator", safeToQuit},
             {"", safeToQuit},
         }) {
        EXPECT_EQ(idlePolicy("org.example.App", {}, entry(categories)).behavior, expected)
            << categories;
    }
}

TEST(LinuxAnnex, ListsNothingTwice) {
    std::set<std::string_view> all;
    for (const AnnexSubject& subject : annexSubjects()) {
        forEachWord(subject.identifiers, [&](std::string_view identifier) {
            EXPECT_TRUE(all.insert(identifier).second) << identifier;
            EXPECT_FALSE(KnownApps::lookup(identifier)) << identifier;
        });
    }
}

TEST(MusicPlayers, AreThoseOfTheCatalogueAndOfLinux) {
    for (const char* player : {"com.spotify.client", "com.tidal.desktop", "org.gnome.Rhythmbox3",
                               "audacious", "org.strawberrymusicplayer.strawberry", "vagalume"}) {
        EXPECT_TRUE(isMusicPlayer(player)) << player;
    }
    for (const char* other : {"mpv", "org.gnome.Totem", "org.videolan.vlc", "kodi", "Audacious",
                              "audacity", "aumix-gtk", ""}) {
        EXPECT_FALSE(isMusicPlayer(other)) << other;
    }
}

// Every entry of Debian 12 and 13 with the category TerminalEmulator, and those that lack it.
TEST(LinuxAnnex, SparesEveryTerminalOfDebian) {
    std::istringstream identifiers(
        "Alacritty Terminal com.gexperts.Tilix com.raggesilver.BlackBox cool-retro-term cutecom "
        "debian-uxterm debian-xterm deepin-terminal foot foot-server footclient gmrun guake "
        "guake-indicator kitty lomiri-terminal-app lxde-x-terminal-emulator lxterminal "
        "mate-terminal mlterm org.gnome.Console org.gnome.Ptyxis org.gnome.Terminal "
        "org.kde.konsole org.kde.qmlkonsole org.kde.yakuake org.laptop.Terminal.activity pangoterm "
        "pterm qterminal qterminal-drop rxvt-unicode sakura st terminator terminology terminus "
        "termit tilda tilda-dbus x3270 xfce4-terminal xfce4-terminal-emulator xgterm xiterm+thai "
        "zutty");
    for (std::string identifier; identifiers >> identifier;) {
        EXPECT_EQ(annexBehavior(identifier), IdleBehavior::neverQuit) << identifier;
    }
}

} // namespace
} // namespace calmora
