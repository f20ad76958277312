// SPDX-License-Identifier: MIT
#include "platform/linux/identity/ApplicationIdentifier.h"

#include "platform/linux/launch/ProgramEnvironment.h"
#include "platform/linux/xdg/ExecKey.h"
#include "platform/linux/xdg/ExecResolver.h"

#include <sstream>

namespace calmora {
namespace {

std::vector<std::string> words(const std::string& line) {
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// Links and scripts by their paths; every other path is a program, and PATH is /usr/bin.
using Files = std::map<std::string, ProgramFile>;

TopLevelWindow windowOf(WindowId id, const std::string& instance, const std::string& className,
                        const std::string& gtkId = {}) {
    return {.id = id, .instance = instance, .className = className, .gtkApplicationId = gtkId};
}

/// A process of its command line; the file that an absolute path in it means is there. Without an
/// executable it cannot be read.
ApplicationFacts factsOf(const std::string& commandLine, const std::string& executable,
                         std::vector<TopLevelWindow> windows) {
    ApplicationFacts facts;
    facts.process.pid = 4711;
    facts.process.parent = 4000;
    facts.process.startTime = 99;
    facts.process.comm = "comm";
    facts.process.commandLine = words(commandLine);
    if (!executable.empty()) {
        facts.process.executable = executable;
    }
    const Command command = commandOfProcess(facts.process.commandLine, facts.process.executable);
    if (!command.interpreter.empty() && command.target.starts_with('/')) {
        facts.process.commandPath = command.target;
    }
    facts.windows = std::move(windows);
    return facts;
}

const std::string python = "/usr/bin/python3.11";
const std::string java = "/usr/lib/jvm/j/bin/java";
const std::string wine = "/usr/lib/wine/wine64-preloader";

/// Scripts and links that the entries below start.
const Files files = {
    {"/opt/a/main.py", {"/opt/a/main.py", "python3", true}},
    {"/opt/b/main.py", {"/opt/b/main.py", "python3", true}},
    {"/usr/bin/deluge-gtk", {"/usr/bin/deluge-gtk", "python3", true}},
    {"/usr/bin/jedit", {"/usr/bin/jedit", "sh", true}},
    {"/usr/bin/launched", {"/usr/bin/launched", "sh", true}},
    {"/usr/bin/frontend", {"/usr/bin/frontend", "bash", true}},
    {"/usr/bin/libreoffice", {"/usr/lib/libreoffice/program/soffice", "sh", true}},
    {"/usr/bin/meld", {"/usr/bin/meld", "python3", true}},
    {"/home/u/bin/linked", {"/opt/linked/real", "", true}},
    {"/usr/bin/gvim", {"/usr/bin/vim.gtk3", "", true}},
    {"/usr/bin/vim", {"/usr/bin/vim.gtk3", "", true}},
    {"/usr/bin/chooser", {"/usr/bin/qtchooser", "", true}},
    {"/snap/bin/spotify", {"/usr/bin/snap", "", true}},
    {"/usr/bin/zoom", {"/opt/zoom/ZoomLauncher", "", true}},
    {"/opt/ide-1/bin/ide.sh", {"/opt/ide-1/bin/ide.sh", "sh", true}},
    {"/opt/ide-2/bin/ide.sh", {"/opt/ide-2/bin/ide.sh", "sh", true}},
};

/// An entry that starts what is in `files`.
DesktopEntry entry(const std::string& id, const std::string& lines) {
    auto entry = parseDesktopEntry("[Desktop Entry]\nType=Application\n" + lines, {});
    entry->id = id;
    entry->path = "/usr/share/applications/" + id + ".desktop";
    const std::filesystem::path folder = "/usr/bin";
    resolveExec(*entry, {&folder, 1}, [&](const std::string& path) {
        const auto file = files.find(path);
        return file == files.end() ? ProgramFile{path, {}, true} : file->second;
    });
    return *std::move(entry);
}

const DesktopEntryIndex& installed() {
    static const DesktopEntryIndex index(
        {entry("debian-xterm", "Name=XTerm\nExec=xterm\nStartupWMClass=XTerm\n"),
         entry("org.xfce.mousepad", "Name=Mousepad\nExec=mousepad %U\n"),
         entry("org.gnome.Meld", "Name=Meld\nExec=meld %F\nStartupWMClass=MeldWindow\n"),
         entry("firefox-esr", "Name=Firefox ESR\nExec=/usr/lib/firefox-esr/firefox-esr %u\n"
                              "StartupWMClass=firefox-esr\n"),
         entry("io.github.Hexchat", "Name=HexChat\nExec=hexchat\nStartupWMClass=Hexchat\n"),
         entry("libreoffice-calc", "Name=LibreOffice Calc\nExec=libreoffice --calc %U\n"
                                   "StartupWMClass=libreoffice-calc\n"),
         entry("libreoffice-writer", "Name=LibreOffice Writer\nExec=libreoffice --writer %U\n"
                                     "StartupWMClass=libreoffice-writer\n"),
         entry("feh", "Name=Feh\nExec=feh %F\nNoDisplay=true\n"),
         entry("gvim", "Name=GVim\nExec=gvim -f %F\n"),
         entry("vim", "Name=Vim\nExec=vim %F\nTerminal=true\n"),
         entry("org.kde.kcalc", "Name=KCalc\nExec=kcalc-launcher\n"),
         entry("org.kde.konsole", "Name=Konsole\nExec=konsole\n"),
         entry("jedit", "Name=jEdit\nExec=jedit %F\nStartupWMClass=org-declared-jEdit\n"),
         entry("org.example.Tool", "Name=Fine Tool\nExec=tool-launcher\n"),
         entry("a", "Name=A\nExec=/opt/a/main.py\n"),
         entry("b", "Name=B\nExec=python3 /opt/b/main.py\n"),
         entry("run-a", "Name=Run A\nExec=/opt/a/AppRun\n"),
         entry("run-b", "Name=Run B\nExec=/opt/b/AppRun\n"),
         entry("linked", "Name=Linked\nExec=/home/u/bin/linked\n"),
         entry("launched", "Name=Launched\nExec=launched\n"),
         entry("frontend", "Name=Frontend\nExec=frontend\n"),
         entry("choice", "Name=Choice\nExec=chooser\n"),
         entry("deluge", "Name=Deluge\nExec=deluge-gtk %U\n"),
         entry("shared.one", "Name=One\nExec=one\nStartupWMClass=Shared\n"),
         entry("shared.two", "Name=Two\nExec=two --long-options\nStartupWMClass=Shared\n"),
         entry("zoom-client", "Name=Zoom\nExec=/usr/bin/zoom %U\n"),
         entry("ide-1", "Name=IDE\nExec=/opt/ide-1/bin/ide.sh\nStartupWMClass=ide\n"),
         entry("ide-2", "Name=IDE\nExec=/opt/ide-2/bin/ide.sh %f\nStartupWMClass=ide\n"),
         entry("engine", "Name=Engine\nExec=/opt/engine/electron %U\n"),
         entry("module", "Name=Module\nExec=python3 -m module\n"),
         entry("wine-a",
               "Name=Windows A\nStartupWMClass=launcher.exe\n"
               "Exec=env WINEPREFIX=\"/home/u/.wine\" wine \"C:\\\\\\\\A\\\\\\\\launcher.exe\"\n"),
         entry("app", "Name=An Image\nExec=/home/u/A.AppImage\nStartupWMClass=image\n"),
         entry("org.kde.krita", "Name=Krita\nExec=krita\n"),
         entry("spotify_spotify", "Name=Spotify\nExec=/snap/bin/spotify %U\n"),
         entry("org.gnome.Maps", "Name=Maps\nExec=flatpak run org.gnome.Maps\n")});
    return index;
}

/// A program with one window; it cannot be read where its executable is empty.
struct Program {
    /// The desktop id, or the whole identifier where there is none.
    const char* identifier;
    IdentityRule rule;
    const char* commandLine;
    std::string executable;
    const char* className = "";
    /// The class where it is empty.
    std::string instance = {};
    const char* gtkId = "";
};

void expectIdentity(const ApplicationFacts& facts, const std::string& identifier,
                    IdentityRule rule) {
    const auto identity = identify(facts, installed());
    EXPECT_EQ(identity.desktopId.value_or(identity.bundleIdentifier), identifier)
        << testing::PrintToString(facts.process.commandLine);
    EXPECT_EQ(identity.rule, rule) << identifier;
}

TEST(ApplicationIdentifier, TellsProgramsApart) {
    using enum IdentityRule;
    const std::string dash = "/usr/bin/dash";
    const Program programs[] = {
        // The window.
        {"org.kde.kcalc", desktopIdEnd, "kcalc", "/usr/bin/kcalc", "kcalc"},
        {"org.example.Tool", entryName, "ft", "/usr/bin/ft", "Fine Tool", "ft"},
        {"feh", windowHint, "odd", "/usr/bin/odd", "Odd", "hexchat-1", "feh"},
        {"shared.one", startupWmClass, "one", "/usr/bin/one", "Shared", "x"},
        {"shared.two", startupWmClass, "two", "/usr/bin/two", "shared"},
        // Files of one name are several programs.
        {"a", execKey, "python3 /opt/a/main.py", python},
        {"b", execKey, "python3 /opt/b/main.py", python},
        {"script:/opt/c/main.py.main", synthetic, "python3 /opt/c/main.py", python},
        {"run-a", execKey, "/opt/a/AppRun", "/opt/a/AppRun"},
        {"exe:/opt/c/AppRun.AppRun", synthetic, "/opt/c/AppRun", "/opt/c/AppRun"},
        {"script:/home/u/mousepad.sh.mousepad", synthetic, "sh /home/u/mousepad.sh", dash},
        {"exe:/home/u/mousepad.mousepad", synthetic, "mousepad", "/home/u/mousepad"},
        {"exe:/usr/bin/odd.odd", synthetic, "mousepad", "/usr/bin/odd"},
        {"org.xfce.mousepad", execKey, "mousepad", ""},
        {"exe:/home/u/mousepad.mousepad", synthetic, "/home/u/mousepad", ""},
        // Links, launchers and dispatchers of the same program.
        {"linked", execKey, "title", "/opt/linked/real"},
        {"gvim", execKey, "gvim x", "/usr/bin/vim.gtk3"},
        {"launched", execKey, "x", "/usr/lib/launched/launched"},
        {"launched", execKey, "python3 /usr/share/launched/launched.py", python},
        {"script:/home/u/launched.py.launched", synthetic, "python3 /home/u/launched.py", python},
        {"exe:/usr/local/lib/launched.launched", synthetic, "x", "/usr/local/lib/launched"},
        {"choice", execKey, "chooser", "/usr/lib/qt5/bin/chooser"},
        {"zoom-client", execKey, "zoom", "/opt/zoom/zoom"},
        {"exe:/home/u/zoom.zoom", synthetic, "zoom", "/home/u/zoom"},
        {"engine", execKey, "/opt/engine/electron --x", "/opt/engine/electron"},
        {"script:/opt/engine/app.asar.app", synthetic, "/opt/engine/electron /opt/engine/app.asar",
         "/opt/engine/electron"},
        // An interpreter's window claims what it likes.
        {"org.gnome.Meld", startupWmClass, "python3 /usr/bin/meld", python, "MeldWindow"},
        {"script:/home/u/x.py.x", synthetic, "python3 /home/u/x.py", python, "MeldWindow"},
        {"script:/home/u/x.py.x", synthetic, "python3 /home/u/x.py", python, "Hexchat", "hexchat"},
        {"script:/home/u/x.py.x", synthetic, "python3 /home/u/x.py", python, "mousepad"},
        {"script:/home/u/x.py.x", synthetic, "python3 /home/u/x.py", python, "Fine Tool", "kcalc"},
        {"frontend", desktopIdOfClass, "python3 /usr/share/frontend/main.py", python, "frontend"},
        {"script:/home/u/frontend/main.py.main", synthetic, "python3 /home/u/frontend/main.py",
         python, "frontend"},
        {"libreoffice-calc", startupWmClass, "python3 /usr/lib/libreoffice/x.py", python,
         "libreoffice-calc", "l"},
        {"deluge", execKey, "deluge-gtk", python, "D"},
        {"exe:/usr/bin/python3.11:4711:99.python3-11", synthetic, "mousepad", python},
        {"module", execKey, "python3 -m module", python},
        {"script:module:4711:99.module", synthetic, "/x/bin/python3 -m module", python},
        // Java.
        {"jedit", startupWmClass, "java -cp x:y org.declared.jEdit", java, "org-declared-jEdit"},
        {"jedit", execKey, "java -cp /usr/share/jedit/jedit.jar org.X", java},
        {"jedit", javaClass, "java -cp a:b X", java, "org-gjt-sp-jedit-jEdit"},
        {"java:/a/x.jar:/b/y.jar:org.foo.Main.Main", synthetic,
         "java -cp /a/x.jar:/b/y.jar org.foo.Main", java, "org-foo-Main"},
        {"script:/a/x.jar.x", synthetic, "java -jar /a/x.jar", java, "Main"},
        {"exe:/usr/lib/jvm/j/bin/java:4711:99.java", synthetic, "java -cp a org.foo.Main", java,
         "org-foo-Main", "m"},
        {"ide-1", startupWmClass, "java -cp a:b Main", "/opt/ide-1/jbr/bin/java", "ide"},
        {"ide-2", startupWmClass, "java -cp a:b Main", "/opt/ide-2/jbr/bin/java", "ide"},
        // Wine.
        {"wine-a", startupWmClass, "C:\\A\\launcher.exe", wine, "launcher.exe"},
        {"wine:c:/b/launcher.exe.launcher", synthetic, "C:\\B\\launcher.exe", wine, "launcher.exe"},
        {"wine:/home/u/c/launcher.exe.launcher", synthetic,
         "/usr/bin/wine Z:\\home\\u\\C\\launcher.exe", wine, "launcher.exe"},
    };
    for (const auto& [identifier, rule, line, executable, name, instance, gtkId] : programs) {
        const auto window = windowOf(1, instance.empty() ? name : instance, name, gtkId);
        expectIdentity(factsOf(line, executable, {window}), identifier, rule);
    }
    const auto launcher = windowOf(1, "launcher.exe", "launcher.exe");
    auto facts = factsOf("C:\\A\\launcher.exe", wine, {launcher});
    facts.process.environment.winePrefix = "/home/u/.wine/";
    expectIdentity(facts, "wine-a", startupWmClass);
    facts.process.environment.winePrefix = "/home/u/games";
    expectIdentity(facts, "wine:/home/u/games:c:/a/launcher.exe.launcher", synthetic);
}

TEST(ApplicationIdentifier, TellsAppImagesApart) {
    using enum IdentityRule;

    const struct {
        const char* image;
        const char* innerEntry;
        const char* className;
        const char* identifier;
        IdentityRule rule;
    } cases[] = {
        {"/home/u/A.AppImage", "app", "Image", "app", startupWmClass},
        {"/home/u/A.AppImage", "x", "x", "app", execKey},
        {"/home/u/B.AppImage", "app", "Image", "exe:/home/u/B.AppImage.B-AppImage", synthetic},
        {"/home/u/B.AppImage", "app", "app", "exe:/home/u/B.AppImage.B-AppImage", synthetic},
        {"/home/u/K.AppImage", "org.kde.krita", "x", "org.kde.krita", launchEnvironment},
        {"/home/u/C.AppImage", "org.inner", "x", "exe:/home/u/C.AppImage.C-AppImage", synthetic},
    };

    for (const auto& test : cases) {
        for (const std::string line : {"AppRun", "python3 /tmp/.mount_x/usr/bin/main.py"}) {
            auto facts = factsOf(line, line == "AppRun" ? "/tmp/.mount_x/usr/bin/odd" : python,
                                 {windowOf(1, test.className, test.className)});
            facts.process.environment.appDir = "/tmp/.mount_x";
            facts.process.environment.appImage = test.image;
            facts.process.appImageDesktopFile =
                std::string("/tmp/.mount_x/") + test.innerEntry + ".desktop";
            expectIdentity(facts, test.identifier, test.rule);
        }
    }
    // What was started from an image, and inherited its environment, is not of it.
    auto other = factsOf("xterm", "/usr/bin/xterm", {});
    other.process.environment.appDir = "/tmp/.mount_x";
    other.process.environment.appImage = "/home/u/A.AppImage";
    expectIdentity(other, "debian-xterm", IdentityRule::execKey);
}

TEST(ApplicationIdentifier, TakesAllWindowsOfTheProcessThenOfTheGroup) {
    TopLevelWindow tip = windowOf(1, "feh", "feh");
    tip.transientFor = 2;
    auto office = factsOf("soffice.bin", "/usr/lib/libreoffice/program/soffice.bin",
                          {tip, windowOf(2, "libreoffice", "libreoffice-writer"),
                           windowOf(3, "libreoffice", "libreoffice-calc"),
                           windowOf(4, "libreoffice", "libreoffice-calc"),
                           windowOf(5, "Navigator", "firefox-esr"), windowOf(6, "odd", "Odd")});
    // Windows that differ: the program names none, so the oldest one counts.
    const auto identity = identify(office, installed());
    EXPECT_EQ(identity.desktopId, "libreoffice-writer");
    EXPECT_EQ(identity.otherIdentifiers,
              (std::vector<std::string>{"libreoffice-calc", "org.mozilla.firefox"}));
    office.process.executable = "/usr/bin/hexchat";
    EXPECT_EQ(identify(office, installed()).desktopId, "io.github.Hexchat");
    EXPECT_EQ(identify(office, installed()).otherIdentifiers.size(), 3U);

    // A parent that is not there leaves the window on its own.
    TopLevelWindow orphan = windowOf(5, "feh", "feh");
    orphan.transientFor = 99;
    auto facts = factsOf("x", "/usr/bin/x", {windowOf(1, "nothing", "Nothing"), orphan});
    EXPECT_EQ(identify(facts, installed()).desktopId, "feh");
    EXPECT_TRUE(identify(facts, installed()).otherIdentifiers.empty());
    facts.windows.pop_back();
    facts.groupWindows = {windowOf(7, "nix", "Nix"), windowOf(8, "xterm", "XTerm")};
    expectIdentity(facts, "debian-xterm", IdentityRule::windowGroup);
}

TEST(ApplicationIdentifier, BelievesASandboxBeforeTheWindow) {
    auto facts = factsOf("gjs", "/app/bin/gjs", {windowOf(1, "xterm", "XTerm")});
    facts.process.flatpak = FlatpakInfo{"org.gnome.Maps", "1"};
    EXPECT_EQ(identify(facts, installed()).desktopId, "org.gnome.Maps");
    facts.process.flatpak = FlatpakInfo{"com.spotify.Client", "2"};
    const auto unlisted = identify(facts, installed());
    EXPECT_EQ(unlisted.bundleIdentifier, "com.spotify.client");
    EXPECT_EQ(unlisted.localizedName, "XTerm");

    auto snap = factsOf("spotify", "/snap/spotify/42/usr/bin/spotify", {windowOf(1, "s", "S")});
    snap.process.cgroup =
        "/user.slice/snap.spotify.spotify-0a1b2c3d-1111-2222-3333-444455556666.scope";
    EXPECT_EQ(identify(snap, installed()).bundleIdentifier, "com.spotify.client");
    snap.process.executable = "/snap/core22/1/usr/bin/python3.10"; // A base, seen by all.
    EXPECT_EQ(identify(snap, installed()).desktopId, "spotify_spotify");
    // Started from the snap, but not of it.
    snap.windows = {windowOf(1, "xterm", "XTerm")};
    for (const char* other : {"/usr/bin/xterm", "/snap/corex/1/xterm", "/snap/spotify2/1/xterm"}) {
        snap.process.executable = other;
        EXPECT_EQ(identify(snap, installed()).desktopId, "debian-xterm") << other;
    }
    // The same path is the base's below the root of a confined snap.
    snap.process.executable = "/usr/bin/xterm";
    snap.process.hasOwnRoot = true;
    EXPECT_EQ(identify(snap, installed()).desktopId, "spotify_spotify");
}

TEST(ApplicationIdentifier, BelievesUnitAndHintOnlyOfTheProgramThatTheyName) {
    using enum IdentityRule;

    const struct {
        const char* id;
        const char* commandLine;
        /// Without one the process is an orphan.
        const char* parentCommandLine;
        IdentityRule byUnit;
        IdentityRule byHint;
    } cases[] = {
        {"org.kde.konsole", "konsole -e x", "", systemdUnit, launchEnvironment},
        {"launched", "python3 /opt/k/launched.py", "/usr/bin/fish", systemdUnit, launchEnvironment},
        {"org.kde.konsole", "odd", "/bin/sh /usr/bin/konsole", systemdUnit, launchEnvironment},
        // Typed into the terminal, with and without the terminal still there.
        {"org.kde.konsole", "odd", "/bin/bash", synthetic, synthetic},
        {"org.kde.konsole", "odd", "/bin/sh /usr/bin/start-odd", synthetic, synthetic},
        {"org.kde.konsole", "odd", "", synthetic, synthetic},
        {"org.kde.konsole", "python3 /opt/k/konsole.py", "", synthetic, synthetic},
        {"org.kde.konsole", "python3 /opt/a/main.py", "", execKey, execKey},
        {"org.kde.konsole", "odd", "/bin/sh /usr/bin/tool-launcher -x", parentScript, parentScript},
        {"org.kde.konsole", "odd", "/bin/sh /home/u/tool-launcher", synthetic, synthetic},
        {"org.kde.konsole", "odd", "/usr/bin/python3 /usr/bin/tool-launcher", synthetic, synthetic},
    };

    for (const auto& test : cases) {
        auto facts = factsOf(test.commandLine, "/usr/bin/" + words(test.commandLine).front(),
                             {windowOf(1, "odd", "Odd")});
        if (*test.parentCommandLine != '\0') {
            facts.parent = factsOf(test.parentCommandLine, "", {}).process;
        }
        facts.process.cgroup = std::string("/a/app-") + test.id + "-0123.scope";
        EXPECT_EQ(identify(facts, installed()).rule, test.byUnit) << test.commandLine;
        facts.process.cgroup.clear();
        facts.process.environment.bamfDesktopFileHint =
            std::string("/x/applications/") + test.id + ".desktop";
        EXPECT_EQ(identify(facts, installed()).rule, test.byHint) << test.commandLine;
    }
    auto facts = factsOf("odd", "/usr/bin/odd", {windowOf(1, "odd", "Odd")});
    facts.process.environment.launchedDesktopFile = "/usr/share/applications/feh.desktop";
    facts.process.environment.launchedDesktopFilePid = 4711;
    expectIdentity(facts, "feh", launchEnvironment);
    facts.process.environment.launchedDesktopFilePid = 4000; // Inherited.
    expectIdentity(facts, "exe:/usr/bin/odd.odd", synthetic);
}

TEST(ApplicationIdentifier, ReadsTheNamesOfUnitsAndSnaps) {
    using Ids = std::vector<std::string>;
    EXPECT_EQ(desktopIdsOfCgroup("/x/app-gnome-org.gnome.Maps-4711.scope"),
              (Ids{"gnome-org.gnome.Maps", "org.gnome.Maps"}));
    EXPECT_EQ(desktopIdsOfCgroup("/x/app-firefox\\x2desr@0af.service").front(), "firefox-esr");
    EXPECT_EQ(desktopIdsOfCgroup("/x/app-KDE-org.kde.kate.service"),
              (Ids{"KDE-org.kde.kate", "org.kde.kate"}));
    for (const char* id : {"org.gnome.Maps", "a b@c\\d/é-1", ".x"}) {
        EXPECT_EQ(desktopIdsOfCgroup("/x/" + appScopeName(id, "4711")).back(), id);
    }
    EXPECT_EQ(appScopeName("firefox-esr", "4711"), "app-calmora-firefox\\x2desr-4711.scope");
    EXPECT_EQ(appScopeName(std::string(240, 'x'), "4711"), "") << "no unit has such a name";
    EXPECT_EQ(desktopIdsOfCgroup("/x/app-a\\xzz-1.scope").front(), "a\\xzz");
    for (const char* other : {"", "/", "/x/session-2.scope", "/x/app-.scope", "/x/app-foo.slice"}) {
        EXPECT_EQ(desktopIdsOfCgroup(other), Ids{}) << other;
    }
    EXPECT_EQ(snapOfCgroup("/x/snap.code.code-url.scope"), "code_code-url");
    EXPECT_EQ(snapOfCgroup("/x/snap.a.b.0f1e.scope"), "a_b");
    EXPECT_EQ(snapOfCgroup("/x/snap.a.hook.configure-1.scope"), std::nullopt);
    EXPECT_EQ(snapOfCgroup("/x/snap."), std::nullopt);
}

TEST(ApplicationIdentifier, MakesIdentifiersThatSurviveARestart) {
    const struct {
        const char* identifier;
        const char* name;
        const char* commandLine;
        const char* executable;
        const char* className = "";
    } cases[] = {
        {"exe:/opt/a.b/my.tool.my-tool", "my-tool", "x", "/opt/a.b/my.tool"},
        {"exe:comm.comm", "comm", "relative", ""},
        {"exe:/usr/bin/x.x", "\xef\xbf\xbd", "x", "/usr/bin/x", "\x01\xff"},
    };

    for (const auto& test : cases) {
        const auto facts = factsOf(test.commandLine, test.executable,
                                   {windowOf(1, test.className, test.className)});
        const auto identity = identify(facts, DesktopEntryIndex());
        EXPECT_EQ(identity.bundleIdentifier, test.identifier);
        EXPECT_EQ(identity.localizedName, test.name);
        EXPECT_EQ(identity.desktopId, std::nullopt);
    }
    auto viewer = factsOf("python3 viewer", "/usr/bin/python3.13t", {});
    viewer.process.commandPath = "/home/u/viewer/__main__.py"; // What the relative path means.
    expectIdentity(viewer, "script:/home/u/viewer/__main__.py.viewer", IdentityRule::synthetic);
    auto odd = factsOf("odd /x/clock.odd", "/usr/bin/odd", {});
    odd.process.runsScript = true;
    odd.process.commandPath = "/x/clock.odd";
    expectIdentity(odd, "script:/x/clock.odd.clock", IdentityRule::synthetic);
    EXPECT_FALSE(identify(ApplicationFacts{}, installed()).bundleIdentifier.empty());
    EXPECT_FALSE(identify(ApplicationFacts{}, installed()).localizedName.empty());
}

TEST(ApplicationIdentifier, TellsJavaProgramsApartByTheirClassPaths) {
    const auto identifier = [](const std::string& options, const std::string& folder,
                               const std::string& variable) {
        auto facts = factsOf("java " + options + " Main", java, {});
        facts.process.workingDirectory = folder;
        facts.process.environment.classPath = variable;
        return identify(facts, DesktopEntryIndex()).bundleIdentifier;
    };
    std::set<std::string> all;
    const std::string longPath = "-cp /x" + std::string(5000, 'y');
    for (const std::string& one :
         {identifier("-cp build", "/home/u/a", ""), identifier("-cp build", "/home/u/b", ""),
          identifier("-cp /a:build", "/home/u/b", ""), identifier("", "/home/u/a", ""),
          identifier("", "/home/u/a", "/c"), identifier(longPath, "/", ""),
          identifier(longPath + "z", "/", ""), identifier("-p /mods -m a/", "/", "")}) {
        EXPECT_TRUE(one.starts_with("java:") && one.size() < 300 && all.insert(one).second) << one;
    }
    EXPECT_EQ(identifier(longPath, "/a", ""), identifier(longPath, "/b", ""));
}

TEST(ApplicationIdentifier, NamesWindowlessProgramsOnlyByAnEntry) {
    EXPECT_EQ(identifyWindowless(factsOf("hexchat", "", {}).process, installed())->desktopId,
              "io.github.Hexchat");
    EXPECT_FALSE(
        identifyWindowless(factsOf("python3.11", "/usr/bin/python3.11", {}).process, installed()));
    EXPECT_FALSE(identifyWindowless(ProcessDetails{}, installed()));
    EXPECT_FALSE(mayBeInstalled(ProcessDetails{}, installed()));
    EXPECT_FALSE(identifyWindowless(factsOf("vim", "/usr/bin/vim.gtk3", {}).process, installed()));
    auto leftover = factsOf("tmux", "/usr/bin/tmux", {}).process;
    leftover.cgroup = "/a/app-gnome-debian\\x2dxterm-123.scope";
    EXPECT_FALSE(identifyWindowless(leftover, installed()));
    EXPECT_TRUE(mayBeInstalled(leftover, installed()));
    leftover.executable = "/usr/bin/xterm";
    EXPECT_EQ(identifyWindowless(leftover, installed())->rule, IdentityRule::systemdUnit);
}

} // namespace
} // namespace calmora
