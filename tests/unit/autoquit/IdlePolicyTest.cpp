#include "autoquit/IdlePolicy.h"

#include "autoquit/catalogue/LinuxAnnex.h"

#include <gtest/gtest.h>

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
             {"org.gnome.baobab", entry("System;Filesystem"), {cautious, true}},
             {"xdaliclock", entry("Clock"), {safeToQuit, true}},
             {"debian-xterm.desktop", entry(""), {safeToQuit, true}},
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
    for (const auto& [expected, entries] :
         {std::pair{neverQuit,
                    "System;TerminalEmulator; Development;Utility;ConsoleOnly Game;Emulator "
                    "KDE;Qt;Settings Settings;HardwareSettings;Printing Utility;Security "
                    "Utility;Archiving Network;FileTransfer;P2P Network;RemoteAccess "
                    "AudioVideo;DiscBurning AudioVideo;Video;Recorder Network;Telephony "
                    "Network;VideoConference;Chat Utility;Clock Office;Calendar "
                    "Utility;Accessibility;TextEditor Network;Monitor"},
          {cautious, "Office;Email Network;InstantMessaging Utility;TextEditor "
                     "Office;Viewer;Presentation Electronics;Education AudioVideo;Player "
                     "Graphics;Photography Development Network Science;Math Game;BoardGame"},
          {safeToQuit, "Office;Viewer;Graphics;2DGraphics Network;WebBrowser Network;Feed "
                       "Office;Dictionary Utility;Calculator;Science;Math Education;Languages "
                       "Utility;system;X-TerminalEmulator"}}) {
        std::istringstream words(entries);
        for (std::string categories; words >> categories;) {
            EXPECT_EQ(idlePolicy("org.example.App", {}, entry(categories)).behavior, expected)
                << categories;
        }
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
