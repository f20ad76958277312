// SPDX-License-Identifier: MIT
#include "platform/linux/identity/BundlePath.h"

#include <tuple>

namespace calmora {
namespace {

ProcessDetails programAt(const std::string& executable) {
    return {.pid = 4711,
            .executable = executable.empty() ? std::nullopt : std::optional(executable)};
}

ApplicationIdentity entryWith(const std::string& id, const std::string& execKey = {}) {
    return {.desktopId = id,
            .entryPath = "/usr/share/applications/" + id + ".desktop",
            .execKey = execKey};
}

TEST(BundlePath, IsAFolderThatIsTheApplicationsAlone) {
    const struct {
        const char* executable;
        const char* id;
        const char* execKey;
        /// Null for none.
        const char* folder;
    } cases[] = {
        {"/usr/bin/xterm", "debian-xterm", "xterm", nullptr},
        {"", "org.pwmt.zathura", "zathura", nullptr},
        {"/usr/lib/firefox-esr/firefox-esr", "firefox-esr", "firefox-esr", "/usr/lib/firefox-esr/"},
        {"/usr/lib/libreoffice/program/soffice.bin", "libreoffice-calc", "libreoffice",
         "/usr/lib/libreoffice/"},
        {"/usr/lib/x86_64-linux-gnu/foo/bin/foo", "foo", "foo", "/usr/lib/x86_64-linux-gnu/foo/"},
        {"/usr/libexec/foo", "foo", "foo", nullptr},
        {"/usr/lib/xfce4/panel/wrapper-2.0", "panel", "xfce4", nullptr},
        {"/usr/lib/jvm/java-17/bin/foo", "jvm", "foo", nullptr},
        {"/usr/lib/electron25/electron", "electron25", "electron25", nullptr},
        {"/usr/lib/foo", "foo", "foo", nullptr},
        {"/opt/google/chrome/chrome", "google-chrome", "google-chrome-stable",
         "/opt/google/chrome/"},
        {"/opt/vendor/bin/foo", "foo", "foo", nullptr},
        {"/opt/vendor/suite/bin/foo", "foo", "foo", nullptr},
        {"/opt/vendor/suite/foo/lib/foo", "x", "x", "/opt/vendor/suite/foo/"},
        {"/opt/games/quake/bin/games", "games", "games", nullptr},
        {"/opt/bin/foo", "foo", "foo", nullptr},
        {"/opt/jdk/bin/java", "foo", "foo", nullptr},
        {"/home/u/Apps/tool/libexec/tool-helper/bin/run", "org.example.Tool", "tool", nullptr},
        {"/home/u/Apps/org.example.Tool/bin/run", "org.example.Tool", "x",
         "/home/u/Apps/org.example.Tool/"},
        {"/home/u/src/tool/build/tool", "tool", "tool", "/home/u/src/tool/"},
        {"/home/u/code/code", "x", "x", "/home/u/code/"},
        {"/home/u/code/editor/code", "code", "code", nullptr},
        {"/home/u/git/foo/bin/git", "git", "git", nullptr},
        {"/home/u/Desktop/Telegram/x", "org.telegram.desktop", "desktop", nullptr},
        {"/home/u/Desktop/desktop", "x", "x", nullptr},
        {"/home/u/.cargo/bin/cargo", "cargo", "cargo", nullptr},
        {"/home/u/.local/share/Steam/steamapps/common/Half-Life/steam", "x", "x", nullptr},
        {"/home/u/Games/quake/x/quake", "y", "y", "/home/u/Games/quake/"},
        {"/home/u/.x/quake/Games/doom/quake", "x", "x", nullptr},
        {"/home/u/tool/tool/tool", "tool", "tool", "/home/u/tool/tool/"},
        {"/home/u/bin/bin", "bin", "bin", nullptr},
        {"/home/u/u", "u", "u", nullptr},
        {"/home/user2/tool/tool", "tool", "tool", nullptr},
        {"/app/bin/maps", "org.gnome.Maps", "maps", nullptr},
        {"/srv/foo/foo", "foo", "foo", nullptr},
    };

    for (const auto& [executable, id, execKey, folder] : cases) {
        const auto identity = entryWith(id, execKey);
        const auto found = privateFolder(programAt(executable), identity, "/home/u", {});
        EXPECT_EQ(found, folder ? std::optional<std::string>(folder) : std::nullopt) << executable;
        EXPECT_EQ(bundlePath(programAt(executable), identity, "/home/u", {}),
                  found.value_or(identity.entryPath.string() + "/"));
    }
}

TEST(BundlePath, IsNeverAFolderThatHoldsAnotherRunningApplication) {
    const auto steam = programAt("/home/u/.steam/steam");
    const auto game = programAt("/home/u/.steam/common/quake/quake");
    EXPECT_EQ(privateFolder(steam, entryWith("steam", "steam"), "/home/u",
                            std::vector<std::string>{*game.executable}),
              std::nullopt);
    EXPECT_EQ(privateFolder(game, entryWith("quake", "quake"), "/home/u",
                            std::vector<std::string>{*steam.executable}),
              "/home/u/.steam/common/quake/");
    // The whole folder is shared, the executable's own is not.
    const auto editor = programAt("/opt/suite/editor/bin2/editor");
    const std::vector<std::string> viewer = {"/opt/suite/editor/viewer"};
    EXPECT_EQ(privateFolder(editor, entryWith("editor"), "/home/u", viewer),
              "/opt/suite/editor/bin2/");
    // Another application of the same executable: a web page with an entry of its own.
    const std::vector<std::string> same = {"/opt/suite/editor/bin2/editor"};
    EXPECT_EQ(privateFolder(editor, entryWith("editor"), "/home/u", same), std::nullopt);
    for (const auto& identity : {entryWith("editor"), ApplicationIdentity{}}) {
        const std::string bundle = bundlePath(editor, identity, "/home/u", same);
        EXPECT_FALSE(same.front().starts_with(bundle)) << bundle;
    }
}

TEST(BundlePath, LeavesOutTheProgramsThatTheApplicationInstalled) {
    const std::string steam = "/home/u/.local/share/Steam/";
    const std::string game = steam + "steamapps/common/Quake/bin/server";
    const std::string toolbox = "/home/u/.toolbox/";
    const std::vector<std::tuple<std::string, std::string, bool>> cases = {
        {steam, steam + "ubuntu12_64/steamwebhelper", false},
        {steam, game, true},
        {steam, steam + "SteamApps/compatdata/42/pfx/x", true},
        {steam, "/usr/bin/x", true},
        {toolbox, toolbox + "apps/idea/bin/idea", true},
        {toolbox, toolbox + "apps/helper", false},
        {toolbox + "apps/idea/", toolbox + "apps/idea/jbr/bin/java", false},
        {"/home/u/Games/quake/", "/home/u/Games/quake/x/y", false}};
    for (const auto& [folder, candidate, isAnothers] : cases) {
        EXPECT_EQ(belongsToAnotherProgram(folder, candidate), isAnothers) << candidate;
    }
    EXPECT_EQ(privateFolder(programAt(steam + "ubuntu12_32/steam"), entryWith("steam", "steam"),
                            "/home/u", std::vector<std::string>{game}),
              steam)
        << "a game that runs does not hide the launcher's helpers";
}

TEST(BundlePath, IsNoFolderThatASandboxShares) {
    auto snap = programAt("/snap/core22/1/usr/bin/dbus-daemon"); // A base snap is everybody's.
    snap.cgroup = "/x/snap.firefox.firefox-1.scope";
    EXPECT_EQ(privateFolder(snap, entryWith("firefox_firefox"), "/home/u", {}), std::nullopt);
    for (const std::string root : {"/snap/", "/var/lib/snapd/snap/"}) {
        snap.executable = root + "firefox/42/bin/firefox";
        EXPECT_EQ(privateFolder(snap, {}, "/home/u", {}), root + "firefox/42/");
        snap.executable = root + "firefox-beta/42/bin/firefox"; // Started from the other one.
        EXPECT_EQ(privateFolder(snap, {}, "/home/u", {}), std::nullopt);
    }
    auto image = programAt("/tmp/.mount_Krita1/usr/bin/krita");
    image.environment.appDir = "/";
    EXPECT_EQ(privateFolder(image, entryWith("krita"), "/home/u", {}), std::nullopt);
    image.environment.appDir = "/tmp/.mount_Krita1";
    EXPECT_EQ(privateFolder(image, {}, "/home/u", {}), "/tmp/.mount_Krita1/");
    image.executable = "/tmp/.mount_Krita12/usr/bin/krita";
    EXPECT_EQ(privateFolder(image, {}, "/home/u", {}), std::nullopt) << "it inherited the variable";
    auto flatpak = programAt("/usr/lib/foo/foo"); // Not the host's folder of that name.
    flatpak.flatpak = FlatpakInfo{"org.foo", "1"};
    EXPECT_EQ(privateFolder(flatpak, entryWith("foo"), "/home/u", {}), "/.flatpak/org.foo/1/app/");
    flatpak.flatpak->instanceId.clear();
    EXPECT_EQ(privateFolder(flatpak, entryWith("foo"), "/home/u", {}), std::nullopt);
}

TEST(BundlePath, OtherwiseLeadsWhereNoExecutableCanLie) {
    const ApplicationIdentity unnamed;
    auto script = programAt("/usr/bin/python3.11");
    script.commandLine = {"python3", "/home/u/clock.py"};
    script.commandPath = "/home/u/clock.py";
    EXPECT_EQ(bundlePath(script, unnamed, "", {}), "/home/u/clock.py/");
    EXPECT_EQ(bundlePath(programAt("/usr/bin/xcalc"), unnamed, "", {}), "/usr/bin/xcalc/");
    // Folders that the arguments name, and paths that begin like those of other programs.
    for (const std::string folder :
         {"/", "/usr", "/usr/", "/usr/.", "/usr/bin/..", "//", "/usr//bin"}) {
        for (const char* executable : {"/usr/bin/python3.11", ""}) {
            auto process = programAt(executable);
            for (const auto& arguments : {std::vector<std::string>{"python3", folder}, {folder}}) {
                process.commandLine = arguments;
                const std::string bundle = bundlePath(process, unnamed, "/home/u", {});
                EXPECT_FALSE(std::string("/usr/bin/xterm").starts_with(bundle)) << folder;
            }
        }
    }
    const std::string unreadable = bundlePath(programAt(""), unnamed, "", {});
    EXPECT_TRUE(unreadable.starts_with("/proc/4711/") && unreadable.ends_with('/'));
    // A home that is the root makes nothing private.
    EXPECT_EQ(privateFolder(programAt("/tool/tool"), unnamed, "/", {}), std::nullopt);
}

} // namespace
} // namespace calmora
