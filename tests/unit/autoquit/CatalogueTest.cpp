// SPDX-License-Identifier: MIT
#include "autoquit/IdlePolicy.h"

#include "autoquit/catalogue/KnownAppTable.h"
#include "autoquit/catalogue/KnownApps.h"
#include "autoquit/catalogue/LinuxAnnex.h"
#include "platform/linux/identity/KnownIds.h"

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
    const std::tuple<std::string, std::optional<InstalledApplication>, IdlePolicy> cases[] = {
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
    };
    for (const auto& [identifier, installed, expected] : cases) {
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

/// FNV-1a over a text and its end.
void mix(std::uint64_t& sum, std::string_view text) {
    for (const char letter : text) {
        sum = (sum ^ static_cast<unsigned char>(letter)) * 0x100000001b3;
    }
    sum *= 0x100000001b3;
}

TEST(KnownApps, TablesMatchTheirChecksum) {
    std::uint64_t sum = 0xcbf29ce484222325;
    for (const KnownAppEntry& entry : knownAppTable) {
        const KnownAppInfo listed{std::string(entry.bundleIdentifier),
                                  std::string(entry.displayName), entry.category,
                                  entry.idleBehavior};
        EXPECT_EQ(KnownApps::lookup(entry.bundleIdentifier), listed);
        mix(sum, entry.bundleIdentifier);
        mix(sum, entry.displayName);
        mix(sum, std::to_string(static_cast<int>(entry.category)));
        mix(sum, std::to_string(static_cast<int>(entry.idleBehavior)));
    }
    for (const std::string_view player : KnownApps::musicAppBundleIDs()) {
        mix(sum, player);
    }
    EXPECT_EQ(sum, 6283804721614749214U);
}

TEST(KnownApps, PrefersListedIdentifiersToVendorPrefixes) {
    using enum AppCategory;
    using enum IdleBehavior;
    const KnownAppInfo known[] = {{"com.adobe.Photoshop", "Adobe Photoshop", creative, cautious},
                                  {"com.jetbrains.fleet", "fleet", devTool, cautious},
                                  {"com.adobe.suite.Extra", "Extra", creative, cautious},
                                  {"com.adobe.", "", creative, cautious}};
    for (const KnownAppInfo& expected : known) {
        EXPECT_EQ(KnownApps::lookup(expected.bundleIdentifier), expected);
    }
    for (const char* unknown : {"com.apple.safari", "com.Adobe.Photoshop", "com.adobe", "",
                                "com.tidal.desktop", "com.apple.finder2"}) {
        EXPECT_FALSE(KnownApps::lookup(unknown)) << unknown;
    }
    EXPECT_FALSE(KnownApps::lookup(std::nullopt));
}

TEST(KnownIds, PointIntoTheCatalogueOrTheMusicList) {
    // The vendor's prefix would answer for a misspelt identifier as well.
    const std::set<std::string_view> jetBrains = {
        "com.jetbrains.intellij", "com.jetbrains.WebStorm", "com.jetbrains.pycharm",
        "com.jetbrains.datagrip", "com.jetbrains.CLion",    "com.jetbrains.rider",
        "com.jetbrains.goland",   "com.jetbrains.rubymine", "com.jetbrains.PhpStorm",
        "com.jetbrains.toolbox"};
    std::set<std::string_view> ids;
    for (const auto& [desktopId, wellKnown] : knownIds()) {
        EXPECT_TRUE(ids.insert(desktopId).second) << desktopId;
        const bool isListed = wellKnown.starts_with("com.jetbrains.")
                                  ? jetBrains.contains(wellKnown)
                                  : KnownApps::lookup(wellKnown).has_value();
        EXPECT_TRUE(isListed || KnownApps::musicAppBundleIDs().contains(wellKnown))
            << desktopId << " -> " << wellKnown;
        EXPECT_FALSE(annexBehavior(desktopId)) << desktopId << " never comes by this name";
    }
}

TEST(KnownIds, MapExactlyAndLeaveTheRestAlone) {
    EXPECT_EQ(wellKnownIdentifier("spotify_spotify"), "com.spotify.client");
    EXPECT_EQ(wellKnownIdentifier("jetbrains-clion-0a1b2c3d-1111-2222-3333-444455556666"),
              "com.jetbrains.CLion");
    for (const char* id : {"Firefox-esr", "galculator", "", "org.mozilla.firefox",
                           "jetbrains-clion-0a1b2c3d-1111-2222-3333-44445555666x"}) {
        EXPECT_EQ(wellKnownIdentifier(id), id);
    }
}

} // namespace
} // namespace calmora
