#include "platform/linux/identity/ApplicationIdentifier.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace calmora {
namespace {

DesktopEntry entryOf(const std::string& id, const std::string& lines) {
    auto entry = parseDesktopEntry("[Desktop Entry]\nType=Application\n" + lines, {});
    entry->id = id;
    entry->path = "/usr/share/applications/" + id + ".desktop";
    return *entry;
}

/// The entries of Debian 12 that the recorded programs come with, as far as they count.
const DesktopEntryIndex& debian() {
    static const DesktopEntryIndex index(
        {entryOf("debian-xterm", "Name=XTerm\nExec=xterm\nStartupWMClass=XTerm\n"),
         entryOf("debian-uxterm", "Name=UXTerm\nExec=uxterm\nStartupWMClass=UXTerm\n"),
         entryOf("org.xfce.mousepad", "Name=Mousepad\nExec=mousepad %U\n"),
         entryOf("org.xfce.mousepad-settings", "Name=Settings\nExec=mousepad --preferences\n"),
         entryOf("pcmanfm", "Name=File Manager PCManFM\nExec=pcmanfm %U\n"),
         entryOf("pcmanfm-desktop-pref", "Name=Desktop Preferences\nExec=pcmanfm --desktop-pref\n"),
         entryOf("org.gnome.Meld", "Name=Meld\nExec=meld %F\n"),
         entryOf("firefox-esr", "Name=Firefox ESR\nExec=/usr/lib/firefox-esr/firefox-esr %u\n"
                                "StartupWMClass=firefox-esr\n"),
         entryOf("org.pwmt.zathura", "Name=Zathura\nExec=zathura %U\n"),
         entryOf("org.pwmt.zathura-pdf-poppler", "Name=Zathura\nExec=zathura %U\nNoDisplay=true\n"),
         entryOf("io.github.Hexchat", "Name=HexChat\nExec=hexchat\nStartupWMClass=Hexchat\n"),
         entryOf("libreoffice-calc", "Name=LibreOffice Calc\nExec=libreoffice --calc %U\n"
                                     "StartupWMClass=libreoffice-calc\n"),
         entryOf("libreoffice-writer", "Name=LibreOffice Writer\nExec=libreoffice --writer %U\n"
                                       "StartupWMClass=libreoffice-writer\n"),
         entryOf("org.keepassxc.KeePassXC",
                 "Name=KeePassXC\nExec=keepassxc %f\nStartupWMClass=keepassxc\n"),
         entryOf("idle-python3.11",
                 "Name=IDLE (using Python-3.11)\nExec=/usr/bin/idle-python3.11\n"),
         entryOf("python3.11", "Name=Python (v3.11)\nExec=/usr/bin/python3.11\nNoDisplay=true\n"),
         entryOf("feh", "Name=Feh\nExec=feh %F\nNoDisplay=true\n"),
         entryOf("vim", "Name=Vim\nExec=vim %F\nTerminal=true\n"),
         entryOf("org.kde.kcalc", "Name=KCalc\nExec=kcalc-launcher\n"),
         entryOf("org.kde.konsole", "Name=Konsole\nExec=konsole\n"),
         entryOf("jedit", "Name=jEdit\nExec=jedit %F\n"),
         entryOf("org.example.Tool", "Name=Fine Tool\nExec=tool-launcher\n"),
         entryOf("spotify_spotify", "Name=Spotify\nExec=/snap/bin/spotify %U\n"),
         entryOf("org.gnome.Maps", "Name=Maps\nExec=flatpak run org.gnome.Maps\n")},
        "pcmanfm");
    return index;
}

TopLevelWindow windowOf(WindowId id, const std::string& instance, const std::string& className,
                        const std::string& gtkId = {}) {
    return {.id = id, .instance = instance, .className = className, .gtkApplicationId = gtkId};
}

/// The words of a command line.
std::vector<std::string> words(const std::string& line) {
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// Without an executable it cannot be read.
ApplicationFacts factsOf(const std::string& commandLine, const std::string& executable,
                         std::vector<TopLevelWindow> windows) {
    return {
        .process = {.pid = 4711,
                    .parent = 4000,
                    .comm = "comm",
                    .commandLine = words(commandLine),
                    .executable = executable.empty() ? std::nullopt : std::optional(executable)},
        .windows = std::move(windows)};
}

/// A program with one window. Its executable is the first word in /usr/bin where none is given,
/// and cannot be read where it is empty.
struct Recorded {
    const char* desktopId;
    IdentityRule rule;
    const char* instance;
    const char* className;
    const char* commandLine;
    std::optional<std::string> executable = {};
    const char* gtkId = "";
};

TEST(ApplicationIdentifier, RecognisesTheRecordedPrograms) {
    using enum IdentityRule;
    const std::string office = "/usr/lib/libreoffice/program/soffice.bin";
    const std::string python = "/usr/bin/python3.11";
    for (const Recorded& program : std::vector<Recorded>{
             {"debian-xterm", startupWmClass, "xterm", "XTerm", "xterm"},
             {"debian-uxterm", startupWmClass, "xterm", "UXTerm", "xterm -class UXTerm -u8"},
             {"debian-xterm", execKey, "foo", "Foo", "xterm -class Foo -name foo"},
             {"org.xfce.mousepad", windowHint, "m", "M", "mousepad", {}, "org.xfce.mousepad"},
             {"pcmanfm", desktopIdOfClass, "pcmanfm", "Pcmanfm", "pcmanfm"},
             {"org.gnome.Meld", windowHint, "m", "Meld", "python3 meld", python, "org.gnome.Meld"},
             {"firefox-esr", startupWmClass, "Navigator", "firefox-esr",
              "/usr/lib/firefox-esr/firefox-esr", "/usr/lib/firefox-esr/firefox-esr"},
             {"org.pwmt.zathura", desktopIdOfClass, "org.pwmt.zathura", "Zathura", "zathura", ""},
             {"io.github.Hexchat", startupWmClass, "hexchat", "Hexchat", "hexchat"},
             {"libreoffice-calc", startupWmClass, "libreoffice", "libreoffice-calc", "s --calc",
              office, "org.libreoffice"},
             {"org.keepassxc.KeePassXC", startupWmClass, "keepassxc", "KeePassXC", "x", ""},
             {"idle-python3.11", execKey, "!listedtoplevel", "Toplevel",
              "/usr/bin/python3.11 /usr/bin/idle-python3.11", python},
             {"feh", desktopIdOfClass, "feh", "feh", "feh x.png"},
             {"org.kde.kcalc", desktopIdEnd, "kcalc", "kcalc", "kcalc"},
             {"jedit", javaClass, "sun-awt-X11-XFramePeer", "org-gjt-sp-jedit-jEdit",
              "java -cp x org.gjt.sp.jedit.jEdit", "/usr/lib/jvm/java-17/bin/java"},
             {"org.example.Tool", entryName, "ft", "Fine Tool", "ft"}}) {
        const std::string usual = "/usr/bin/" + words(program.commandLine).front();
        const auto identity =
            identify(factsOf(program.commandLine, program.executable.value_or(usual),
                             {windowOf(1, program.instance, program.className, program.gtkId)}),
                     debian());
        EXPECT_EQ(identity.desktopId, program.desktopId);
        EXPECT_EQ(identity.localizedName, debian().withId(program.desktopId)->name);
        EXPECT_EQ(identity.rule, program.rule) << program.desktopId;
    }
}

TEST(ApplicationIdentifier, GivesWellKnownIdentifiersLast) {
    const auto firefox =
        identify(factsOf("firefox-esr", "", {windowOf(1, "Navigator", "firefox-esr")}), debian());
    EXPECT_EQ(firefox.bundleIdentifier, "org.mozilla.firefox");
    EXPECT_EQ(firefox.desktopId, "firefox-esr");
    EXPECT_EQ(firefox.entryPath, "/usr/share/applications/firefox-esr.desktop");
    EXPECT_EQ(bundleIdentifierOf("pcmanfm", debian()), "com.apple.finder");
    EXPECT_EQ(bundleIdentifierOf("pcmanfm", DesktopEntryIndex()), "pcmanfm");
    EXPECT_EQ(bundleIdentifierOf("", DesktopEntryIndex()), "");
}

TEST(ApplicationIdentifier, CountsATransientWindowAsItsParents) {
    TopLevelWindow tip = windowOf(1, "feh", "feh");
    tip.transientFor = 2;
    auto facts = factsOf("soffice.bin", "",
                         {tip, windowOf(2, "libreoffice", "libreoffice-writer"),
                          windowOf(3, "libreoffice", "libreoffice-calc")});
    // Windows that differ: the program names none, so the oldest one counts.
    EXPECT_EQ(identify(facts, debian()).desktopId, "libreoffice-writer");
    facts.process.commandLine = {"jedit"};
    EXPECT_EQ(identify(facts, debian()).desktopId, "jedit");
    // A parent that is not there leaves the window on its own.
    TopLevelWindow orphan = windowOf(5, "feh", "feh");
    orphan.transientFor = 99;
    EXPECT_EQ(identify(factsOf("x", "", {orphan}), debian()).desktopId, "feh");
}

TEST(ApplicationIdentifier, TakesAnotherWindowOfTheProcessThenOfTheGroup) {
    auto facts =
        factsOf("x", "/usr/bin/x", {windowOf(1, "nothing", "Nothing"), windowOf(2, "feh", "feh")});
    EXPECT_EQ(identify(facts, debian()).desktopId, "feh");
    facts.windows.pop_back();
    facts.groupWindows = {windowOf(7, "nix", "Nix"), windowOf(8, "xterm", "XTerm")};
    EXPECT_EQ(identify(facts, debian()).desktopId, "debian-xterm");
    EXPECT_EQ(identify(facts, debian()).rule, IdentityRule::windowGroup);
}

TEST(ApplicationIdentifier, BelievesASandboxBeforeTheWindow) {
    auto facts = factsOf("gjs", "/app/bin/gjs", {windowOf(1, "xterm", "XTerm")});
    facts.process.flatpak = FlatpakInfo{"org.gnome.Maps", "1"};
    EXPECT_EQ(identify(facts, debian()).desktopId, "org.gnome.Maps");
    facts.process.flatpak = FlatpakInfo{"com.spotify.Client", "2"};
    const auto unlisted = identify(facts, debian());
    EXPECT_EQ(unlisted.bundleIdentifier, "com.spotify.client");
    EXPECT_EQ(unlisted.localizedName, "XTerm");

    auto snap = factsOf("spotify", "/snap/spotify/42/usr/bin/spotify", {windowOf(1, "s", "S")});
    snap.process.cgroup =
        "/user.slice/snap.spotify.spotify-0a1b2c3d-1111-2222-3333-444455556666.scope";
    EXPECT_EQ(identify(snap, debian()).bundleIdentifier, "com.spotify.client");
    // Started from the snap, but not of it.
    snap.process.executable = "/usr/bin/xterm";
    snap.windows = {windowOf(1, "xterm", "XTerm")};
    EXPECT_EQ(identify(snap, debian()).desktopId, "debian-xterm");
}

TEST(ApplicationIdentifier, BelievesUnitAndHintOnlyOfTheProgramThatTheyName) {
    using enum IdentityRule;

    struct Case {
        const char* commandLine;
        /// Without one the process is an orphan.
        const char* parentCommandLine;
        IdentityRule byUnit;
        IdentityRule byHint;
    };

    for (const Case& test : {
             Case{"konsole -e x", "", systemdUnit, launchEnvironment},
             Case{"python3 /opt/k/konsole.py", "/usr/bin/fish", systemdUnit, launchEnvironment},
             Case{"odd", "/bin/sh /usr/bin/konsole", systemdUnit, launchEnvironment},
             // Typed into the terminal, with and without the terminal still there.
             Case{"odd", "/bin/bash", synthetic, synthetic},
             Case{"odd", "/bin/sh /usr/bin/start-odd", synthetic, synthetic},
             Case{"odd", "", synthetic, synthetic},
             Case{"python3 /usr/bin/idle-python3.11", "", execKey, execKey},
             Case{"odd", "/bin/sh /usr/bin/tool-launcher -x", parentScript, parentScript},
             Case{"odd", "/usr/bin/python3 /usr/bin/tool-launcher", synthetic, synthetic},
         }) {
        auto facts = factsOf(test.commandLine, "/usr/bin/" + words(test.commandLine).front(),
                             {windowOf(1, "odd", "Odd")});
        if (*test.parentCommandLine != '\0') {
            facts.parent = {.commandLine = words(test.parentCommandLine)};
        }
        facts.process.cgroup = "/a/app-org.kde.konsole-0123.scope";
        EXPECT_EQ(identify(facts, debian()).rule, test.byUnit) << test.commandLine;
        facts.process.cgroup.clear();
        facts.process.environment.bamfDesktopFileHint = "/x/applications/org.kde.konsole.desktop";
        EXPECT_EQ(identify(facts, debian()).rule, test.byHint) << test.commandLine;
    }
}

TEST(ApplicationIdentifier, ReadsTheNamesOfUnitsAndSnaps) {
    using Ids = std::vector<std::string>;
    EXPECT_EQ(desktopIdsOfCgroup("/x/app-gnome-org.gnome.Maps-4711.scope"),
              (Ids{"gnome-org.gnome.Maps", "org.gnome.Maps"}));
    EXPECT_EQ(desktopIdsOfCgroup("/x/app-firefox\\x2desr@0af.service").front(), "firefox-esr");
    EXPECT_EQ(desktopIdsOfCgroup("/x/app-KDE-org.kde.kate.service"),
              (Ids{"KDE-org.kde.kate", "org.kde.kate"}));
    EXPECT_EQ(desktopIdsOfCgroup("/x/app-a\\xzz-1.scope").front(), "a\\xzz");
    for (const char* other : {"", "/", "/x/session-2.scope", "/x/app-.scope", "/x/app-foo.slice"}) {
        EXPECT_EQ(desktopIdsOfCgroup(other), Ids{}) << other;
    }
    EXPECT_EQ(snapOfCgroup("/x/snap.code.code-url.scope"), "code_code-url");
    EXPECT_EQ(snapOfCgroup("/x/snap.a.b.0f1e.scope"), "a_b");
    EXPECT_EQ(snapOfCgroup("/x/snap.a.hook.configure-1.scope"), std::nullopt);
    EXPECT_EQ(snapOfCgroup("/x/snap."), std::nullopt);
}

TEST(ApplicationIdentifier, BelievesTheEnvironmentOnlyOfTheLaunchedProcess) {
    auto facts = factsOf("odd", "/usr/bin/odd", {windowOf(1, "odd", "Odd")});
    auto& environment = facts.process.environment;
    environment.launchedDesktopFile = "/usr/share/applications/feh.desktop";
    environment.launchedDesktopFilePid = 4711;
    EXPECT_EQ(identify(facts, debian()).desktopId, "feh");
    environment.launchedDesktopFilePid = 4000; // Inherited.
    EXPECT_EQ(identify(facts, debian()).desktopId, std::nullopt);

    environment = {};
    environment.appImage = "/home/u/Krita.AppImage";
    facts.process.executable = "/tmp/.mount_Krita1/usr/bin/odd";
    facts.process.appImageDesktopFile = "/tmp/.mount_Krita1/org.kde.krita.desktop";
    EXPECT_EQ(identify(facts, debian()).desktopId, "org.kde.krita");
}

TEST(ApplicationIdentifier, MakesIdentifiersThatSurviveARestart) {
    struct Case {
        const char* identifier;
        const char* name;
        const char* commandLine;
        const char* executable;
        const char* instance = "";
        const char* className = "";
        std::optional<std::string> workingDirectory = {};
    };

    for (const Case& test : {
             Case{"exe:/usr/bin/xcalc.xcalc", "XCalc", "xcalc", "/usr/bin/xcalc", "xcalc", "XCalc"},
             Case{"exe:/opt/a.b/my.tool.my-tool", "my-tool", "x", "/opt/a.b/my.tool"},
             Case{"script:/home/u/clock.py.clock", "clock", "python3 /home/u/clock.py",
                  "/usr/bin/python3.11", "tk", "Tk"},
             Case{"script:/home/u/a/main.py.main", "main", "python3 ./x/../main.py",
                  "/usr/bin/python3.11", "tk", "Tk", "/home/u/a"},
             Case{"script:main.py:4711:99.main", "main", "python3 main.py", "/usr/bin/python3.11",
                  "tk", "Tk"},
             Case{"script:main.py:4711:99.main", "main", "python3 main.py", "/usr/bin/python3.11",
                  "tk", "Tk", "/"},
             Case{"exe:/usr/bin/python3.11:4711:99.python3-11", "python3-11", "python3 -c x",
                  "/usr/bin/python3.11", "tk", "Tk"},
             Case{"wine:notepad.exe.notepad", "notepad.exe", "C:\\windows\\notepad.exe",
                  "/usr/lib/wine/wine64-preloader", "notepad.exe", "notepad.exe"},
             Case{"exe:/usr/lib/jvm/j/bin/java:org-foo-Viewer.Viewer", "org-foo-Viewer",
                  "java -cp a org.foo.Main", "/usr/lib/jvm/j/bin/java", "sun-awt-X11-XFramePeer",
                  "org-foo-Viewer"},
             Case{"exe:comm.comm", "comm", "relative", ""},
             Case{"exe:/usr/bin/x.x", "\xef\xbf\xbd", "x", "/usr/bin/x", "a\nb", "\x01\xff"},
         }) {
        auto facts = factsOf(test.commandLine, test.executable,
                             {windowOf(1, test.instance, test.className)});
        facts.process.startTime = 99;
        facts.process.workingDirectory = test.workingDirectory;
        const auto identity = identify(facts, DesktopEntryIndex());
        EXPECT_EQ(identity.bundleIdentifier, test.identifier);
        EXPECT_EQ(identity.localizedName, test.name);
        EXPECT_EQ(identity.desktopId, std::nullopt);
    }
    EXPECT_FALSE(identify(ApplicationFacts{}, debian()).bundleIdentifier.empty());
    EXPECT_FALSE(identify(ApplicationFacts{}, debian()).localizedName.empty());
}

TEST(ApplicationIdentifier, NamesWindowlessProgramsOnlyByAnEntry) {
    EXPECT_EQ(identifyWindowless(factsOf("hexchat", "", {}).process, debian())->desktopId,
              "io.github.Hexchat");
    EXPECT_FALSE(
        identifyWindowless(factsOf("python3.11", "/usr/bin/python3.11", {}).process, debian()));
    EXPECT_FALSE(identifyWindowless(ProcessDetails{}, debian()));
    EXPECT_FALSE(mayBeInstalled(ProcessDetails{}, debian()));
    EXPECT_FALSE(identifyWindowless(factsOf("vim", "/usr/bin/vim", {}).process, debian()));
    auto leftover = factsOf("tmux", "/usr/bin/tmux", {}).process;
    leftover.cgroup = "/a/app-gnome-debian\\x2dxterm-123.scope";
    EXPECT_FALSE(identifyWindowless(leftover, debian()));
    EXPECT_TRUE(mayBeInstalled(leftover, debian()));
    leftover.executable = "/usr/bin/xterm";
    EXPECT_EQ(identifyWindowless(leftover, debian())->rule, IdentityRule::systemdUnit);
}

} // namespace
} // namespace calmora
