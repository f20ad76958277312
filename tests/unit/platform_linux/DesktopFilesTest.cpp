// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/DesktopEntry.h"

#include "fakes/LookUp.h"
#include "platform/linux/IcuText.h"
#include "platform/linux/xdg/BaseDirectories.h"
#include "platform/linux/xdg/ExecKey.h"
#include "platform/linux/xdg/ExecResolver.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "support/TempFolder.h"

#include <thread>

#include <sys/stat.h>

namespace calmora {
namespace {

using Words = std::vector<std::string>;

const Words german = {"de_AT", "de"};

TEST(DesktopEntry, ReadsOnlyItsOwnGroup) {
    const auto entry = parseDesktopEntry(
        "\xEF\xBB\xBF# comment\nName=Before\n[Desktop Entry]\r\n Type = Application\r\n"
        "Name[de]=Datei\nName[de_AT]=Akt\nName = A\\sB\\\\C \r\nExec = env X=1 /opt/tool/run.sh "
        "--flag %U\nIcon=tool.png\n"
        "NoDisplay=true\nStartupWMClass=Tool\nCategories=Utility;FileManager;\nbroken line\n=x\n"
        "[Desktop Action New]\nName=New\nExec=other\nNoDisplay=false\n",
        german);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "Akt");
    EXPECT_EQ(entry->unlocalizedName, "A B\\C");
    EXPECT_EQ(entry->execKey, "run");
    EXPECT_EQ(entry->startupWmClass, "Tool");
    EXPECT_EQ(entry->categories, (Words{"Utility", "FileManager"}));
    EXPECT_FALSE(entry->isVisible);
    EXPECT_EQ(iconImage(entry->icon).themeName, "tool");
    EXPECT_EQ(iconImage("/usr/share/x.png").file, "/usr/share/x.png");
}

TEST(DesktopEntry, IsNothingWithoutNameOrForOtherTypes) {
    for (const char* text :
         {"", "[Desktop Entry", "[Desktop Entry]\nType=Application\n", "Name=x\nType=Application\n",
          "[Desktop Entry]\nType=Link\nName=x\n", "[Desktop Entry]\nName=x\n",
          "[Desktop Entry]\nType=Application\nName=\x01\n", "\xff\xfe\x00[[[]]]===\n"}) {
        EXPECT_FALSE(parseDesktopEntry(text, german)) << text;
    }
    EXPECT_TRUE(parseDesktopEntry("[Desktop Entry]\nHidden=true\n", {})->hidden);
}

TEST(DesktopEntry, SplitsExecAlongItsQuotes) {
    EXPECT_EQ(execWords("foo --x=%f \"two words\" \"a\\\\\"b\" 100%% %U"),
              (Words{"foo", "--x=", "two words", "a\"b", "100%"}));
    EXPECT_EQ(execWords("\"unterminated %u"), (Words{"unterminated "}));
}

TEST(DesktopEntry, FillsInTheWordsToExecute) {
    const struct {
        const char* exec;
        std::optional<Words> words;
        const char* icon = "pen";
    } cases[] = {
        {"foo --x=%f %F a%ub %U %d", Words{"foo", "--x=", "ab"}},
        {"foo \"\" 100%% -c %c -k %k %i", Words{"foo", "", "100%", "-c", "A; rm -rf \"$HOME\"",
                                                "-k", "/x/my %c.desktop", "--icon", "pen"}},
        {"foo %i", Words{"foo"}, ""},
        {"foo `id` $(id) ${HOME} * ~ | a > b ; c & d", // No shell sees them.
         Words{"foo", "`id`", "$(id)", "${HOME}", "*", "~", "|", "a", ">", "b", ";", "c", "&",
               "d"}},
        {R"("/opt/a b/run" "\\$x\\`\\"")", Words{"/opt/a b/run", "$x`\""}},
        {"foo \"open %u", {}},
        {"foo %z", {}},
        {"foo %", {}},
        {"%u", {}},
        {"\"\" foo", {}},
        {"", {}},
    };

    for (const auto& c : cases) {
        DesktopEntry entry{.path = "/x/my %c.desktop", .name = "A; rm -rf \"$HOME\""};
        entry.exec = c.exec;
        entry.icon = c.icon;
        EXPECT_EQ(launchWords(entry), c.words) << c.exec;
    }
    DesktopEntry cut;
    cut.exec = std::string("foo a\0b", 7);
    EXPECT_EQ(launchWords(cut), std::nullopt);
}

TEST(ExecKey, NamesTheProgramBehindWrappersAndInterpreters) {
    const std::pair<Words, const char*> cases[] = {
        {{"xterm", "-class", "Foo"}, "xterm"},
        {{"/usr/bin/python3.11", "/usr/bin/idle-python3.11"}, "idle-python3.11"},
        {{"/usr/bin/python3", "-W", "ignore", "-u", "/opt/a/tool.py", "x"}, "tool"},
        {{"python3", "-m", "idlelib"}, "idlelib"},
        {{"/usr/bin/python3.11"}, ""},
        {{"-bash"}, ""},
        {{"env", "GDK_BACKEND=x11", "-u", "FOO", "/usr/bin/app"}, "app"},
        {{"nice", "-n", "5", "nohup", "app.bin"}, "app"},
        {{"java", "-Xmx1g", "-cp", "/a:/b", "-jar", "/usr/share/jedit/jedit.jar"}, "jedit"},
        {{"java", "-cp", "/a.jar", "org.foo.Main"}, "a"},
        {{"java", "-cp", "/a.jar:/b.jar", "org.foo.Main"}, ""},
        {{"qmlscene-qt6", "-I", "/usr", "/x/clock.qml"}, "clock.qml"},
        {{"sh", "/x/love", "/x/notes"}, "love"},
        {{"box64", "/usr/bin/wine", "Z:\\a.exe"}, "a.exe"},
        {{"/usr/bin/flatpak", "run", "--command=gimp", "org.gimp.GIMP"}, ""},
        {{"/usr/lib/chromium/chromium --type=renderer --x"}, "chromium --type=renderer --x"},
        {{""}, ""},
        {{}, ""}};
    for (const auto& [command, key] : cases) {
        EXPECT_EQ(execKey(command), key) << testing::PrintToString(command);
    }
    for (const char* name :
         {"python3.13t", "python3-dbg", "qml6", "perl5.36-x86_64-linux-gnu", "node18",
          "octave-cli-7.3.0", "ld-linux-x86-64.so.2", "gjs-console", "wine64"}) {
        EXPECT_TRUE(isInterpreter(std::string("/usr/bin/") + name)) << name;
    }
    for (const char* name : {"octave-gui", "perlpanel", "node-red", "gimp-2.10", "idle-python3.11",
                             "winetricks", "rubymine", "vlc", "lua-editor"}) {
        EXPECT_FALSE(isInterpreter(name)) << name;
    }
}

TEST(ExecKey, BelievesArgumentsOnlyAsFarAsTheyFitTheExecutable) {
    const std::string python = "/usr/bin/python3.11";
    EXPECT_EQ(commandOfProcess(Words{"mousepad"}, "/usr/bin/xterm").target, "/usr/bin/xterm");
    EXPECT_EQ(commandOfProcess(Words{"python3", "/usr"}, "/usr/bin/xterm").target,
              "/usr/bin/xterm");
    EXPECT_EQ(commandOfProcess(Words{"python3", "./a.py"}, python), (Command{"./a.py", "python3"}));
    EXPECT_EQ(commandOfProcess(Words{"a title"}, python), (Command{"", python}));
    EXPECT_EQ(commandOfProcess(Words{"zathura"}, std::nullopt), (Command{"zathura", ""}));
    EXPECT_EQ(commandOfProcess(Words{"C:\\a.exe"}, "/usr/lib/wine/wine64").target, "C:\\a.exe");
}

TEST(ExecKey, ReadsTheFirstLineOfScripts) {
    EXPECT_EQ(scriptInterpreterOf("#!/usr/bin/env -S X=1 python3 -u\n"), "python3");
    EXPECT_EQ(scriptInterpreterOf("#! /bin/sh"), "sh");
    for (const char* text : {"", "#!", "#! \n/bin/sh", "\x7f\x45LF", "#!/usr/bin/env\n"}) {
        EXPECT_EQ(scriptInterpreterOf(text), "") << text;
    }
}

TEST(BaseDirectories, IgnoreRelativePathsAndAddTheExportsOnce) {
    const std::map<std::string, const char*> variables = {
        {"HOME", "/home/u"},
        {"XDG_DATA_HOME", "relative"},
        {"XDG_DATA_DIRS", "/usr/share/:/var/lib/flatpak/exports/share:rel:"},
        {"XDG_CURRENT_DESKTOP", "ubuntu:GNOME"}};
    const auto directories = BaseDirectories::fromEnvironment(
        [&](const char* name) { return lookUp(variables, name).value_or(nullptr); });
    EXPECT_EQ(directories.dataHome, "/home/u/.local/share");
    EXPECT_EQ(directories.configHome, "/home/u/.config");
    using Paths = std::vector<std::filesystem::path>;
    EXPECT_EQ(directories.dataDirs,
              (Paths{"/usr/share", "/var/lib/flatpak/exports/share",
                     "/home/u/.local/share/flatpak/exports/share", "/var/lib/snapd/desktop"}));
    EXPECT_EQ(directories.currentDesktops, (Words{"ubuntu", "gnome"}));
}

TEST(IcuText, OrdersAsAReaderOfTheLanguageWould) {
    const IcuText german("de_DE.UTF-8");
    EXPECT_TRUE(german.compare("Ärger", "Zebra") < 0);
    EXPECT_TRUE(german.compare("resume", "résumé") != 0);
    // Ä is a letter of its own behind Z in Swedish.
    EXPECT_TRUE(IcuText("sv_SE").compare("Ärger", "Zebra") > 0);
    EXPECT_EQ(IcuText("tr_TR").capitalized("istanbul PARK"), "İstanbul Park");
    EXPECT_TRUE(german.compare("XTerm", "xterm") == 0 && german.compare("Meld", "Meld 2") < 0);
    EXPECT_TRUE(german.contains("Ärger im Büro", "ÄRGER IM") && german.contains("", ""));
    EXPECT_FALSE(german.contains("Ärger", "ar"));
    for (const char* plain : {"C", "POSIX", "C.UTF-8", "no such locale", "xx_YY@zz.!"}) {
        EXPECT_TRUE(IcuText(plain).compare("b", "C") < 0) << plain;
    }
    EXPECT_TRUE(german.compare("a\xff\xc3", "a\xff\xc3") == 0 && german.contains("a\xff", "A"));
    EXPECT_EQ(german.capitalized("a\xff"), "A\xef\xbf\xbd");
}

TEST(IcuText, FindsWhatIsTypedInEachLanguage) {
    const struct {
        const char* locale;
        const char* text;
        const char* part;
        bool isFound = true;
    } rows[] = {
        {"cs_CZ", "Chromium", "c"},          {"hu_HU", "Csillag", "c"},
        {"da_DK", "Aardvark", "a"},          {"de_DE", "Straße", "s"},
        {"de_DE", "Straße", "STRASSE"},      {"th_TH", "เครื่องคิดเลข", "เค"},
        {"tr_TR", "İstanbul", "is"},         {"tr_TR", "INDIR", "ındır"},
        {"tr_TR", "Istanbul", "ist", false}, {"en_US", "Re\u0301sume\u0301", "résumé"},
    };

    for (const auto& [locale, text, part, isFound] : rows) {
        EXPECT_EQ(IcuText(locale).contains(text, part), isFound)
            << locale << ' ' << text << ' ' << part;
    }
}

std::string entryText(const std::string& name, const std::string& more = {}) {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\n" +
           (more.starts_with("Exec=") ? "" : "Exec=" + name + "\n") + more;
}

class InstalledApplicationsTest : public testing::Test {
  protected:
    [[nodiscard]] BaseDirectories directories() const {
        BaseDirectories result;
        result.home = folder.path();
        result.dataHome = folder.path() / "user";
        result.dataDirs = {folder.path() / "local", folder.path() / "system"};
        result.configHome = folder.path() / "config";
        result.configDirs = {folder.path() / "etc"};
        result.executableDirs = {folder.path() / "bin", folder.path() / "usr/bin"};
        result.currentDesktops = {"xfce"};
        return result;
    }

    /// Entries below a folder of applications, by file and name or, with a "[", whole text.
    void write(const std::string& where, const std::map<std::string, std::string>& entries) const {
        for (const auto& [id, text] : entries) {
            folder.write(where + "/" + id + ".desktop",
                         text.starts_with("[") ? text : entryText(text));
        }
    }

    /// The index as it is now.
    const DesktopEntryIndex& index() {
        installed.refresh();
        return installed.index();
    }

    /// Right after a change the time stamps cannot tell; soon they can.
    void settle() {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (installed.refresh() && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }

    TempFolder folder;
    InstalledApplications installed{directories(), {}};
};

TEST_F(InstalledApplicationsTest, TakesTheFirstOfEachId) {
    const std::string hidden = "[Desktop Entry]\nHidden=true\n";
    write("user/applications", {{"a", "users"}, {"gone", hidden}, {"broken", "[no entry at all"}});
    write("system/applications",
          {{"a", "systems"}, {"kde/deep/b", "deep"}, {"gone", "gone"}, {"broken", "whole"}});
    EXPECT_EQ(index().withId("a")->name, "users");
    EXPECT_EQ(index().withId("kde-deep-b")->name, "deep");
    EXPECT_EQ(index().withId("gone"), nullptr);
    EXPECT_EQ(index().withId("broken")->name, "whole");
    EXPECT_EQ(index().withPath((folder.path() / "user/applications/a.desktop").string())->id, "a");

    write("system/applications", {{"chat", "Chat"}});
    write("etc/autostart", {{"off", "Off"}});
    write("config/autostart", {{"chat", "Chat"}, {"agent", "Agent"}, {"off", hidden}});
    EXPECT_TRUE(index().withId("chat")->isAutostart && index().withId("chat")->isVisible);
    EXPECT_TRUE(index().withId("agent")->isAutostart && !index().withId("agent")->isVisible);
    EXPECT_FALSE(index().withId("off"));
}

TEST_F(InstalledApplicationsTest, LeavesOutWhatCannotStartAndHidesWhatOtherDesktopsShow) {
    chmod(folder.write("bin/there", "x").c_str(), 0755);
    const std::pair<std::string, std::string> rows[] = {
        {"TryExec=there", "visible"},  {"TryExec=missing", "none"},
        {"TryExec=/no/such", "none"},  {"OnlyShowIn=XFCE;", "visible"},
        {"OnlyShowIn=KDE;", "hidden"}, {"NotShowIn=XFCE;", "hidden"}};
    for (const auto& [line, expected] : rows) {
        InstalledApplications fresh(directories(), {});
        write("system/applications", {{"x", entryText("x", line + "\n")}});
        fresh.refresh();
        const DesktopEntry* entry = fresh.index().withId("x");
        EXPECT_EQ(!entry ? "none" : entry->isVisible ? "visible" : "hidden", expected) << line;
    }
}

TEST_F(InstalledApplicationsTest, FindsTheFilesThatEntriesStart) {
    const std::string base = folder.path().string();
    for (const char* program : {"bin/tool", "bin/script", "opt/x-1/x", "opt/x-2/x", "opt/run/go.sh",
                                "snap", "firejail", "usr/bin/browser"}) {
        const std::string name = program;
        const bool isScript = name.ends_with("script") || name.ends_with(".sh");
        chmod(folder.write(name, isScript ? "#!/bin/sh\n" : "x").c_str(), 0755);
    }
    std::filesystem::create_symlink("../opt/x-1/x", folder.path() / "bin/linked");
    std::filesystem::create_symlink("x-1", folder.path() / "opt/x");
    std::filesystem::create_symlink("../snap", folder.path() / "bin/spotify");
    std::filesystem::create_symlink("../firejail", folder.path() / "bin/browser");
    const auto exec = [](const std::string& value, const std::string& more = {}) {
        return entryText("N", "Exec=" + value + "\n" + more);
    };
    write("system/applications", {{"bare", exec("tool %U")},
                                  {"whole", exec(base + "/bin/tool")},
                                  {"script", exec("env X=1 script")},
                                  {"linked", exec("linked")},
                                  {"outside", exec(base + "/opt/x/x")},
                                  {"python", exec("python3 " + base + "/opt/run/go.sh")},
                                  {"here", exec("./go.sh", "Path=" + base + "/opt/run\n")},
                                  {"snap", exec("spotify")},
                                  {"jail", exec("browser")},
                                  {"missing", exec("nothing")},
                                  {"folder", exec(base + "/opt")}});

    const struct {
        const char* id;
        const char* path;
        const char* interpreter;
        bool isInPath;
    } cases[] = {{"bare", "bin/tool", "", true},
                 {"whole", "bin/tool", "", true},
                 {"script", "bin/script", "sh", true},
                 {"linked", "opt/x-1/x", "", true},
                 {"outside", "opt/x-1/x", "", false},
                 {"python", "opt/run/go.sh", "python", false},
                 {"here", "opt/run/go.sh", "sh", false},
                 {"snap", "bin/spotify", "", true},
                 {"jail", "usr/bin/browser", "", true},
                 {"missing", "", "", false},
                 {"folder", "", "", false}};

    for (const auto& [id, path, interpreter, isInPath] : cases) {
        const DesktopEntry* entry = index().withId(id);
        ASSERT_TRUE(entry) << id;
        EXPECT_EQ(entry->execPath, *path ? base + "/" + path : "") << id;
        EXPECT_EQ(entry->execInterpreter, interpreter) << id;
        EXPECT_EQ(entry->isInPath, isInPath) << id;
    }
    // An update that leads a link elsewhere changes no desktop file.
    settle();
    std::filesystem::remove(folder.path() / "opt/x");
    std::filesystem::create_symlink("x-2", folder.path() / "opt/x");
    EXPECT_EQ(index().withId("outside")->execPath, base + "/opt/x-2/x");
}

TEST_F(InstalledApplicationsTest, FindsTheFileManager) {
    const std::string manager = "Categories=System;FileManager;\n";
    write("system/applications", {{"pcmanfm", entryText("pcmanfm", manager)},
                                  {"thunar", entryText("thunar", manager)},
                                  {"editor", "editor"}});
    folder.write("system/applications/mimeinfo.cache",
                 "[MIME Cache]\ninode/directory=editor.desktop;thunar.desktop;pcmanfm.desktop;\n");
    EXPECT_EQ(index().fileManager(), "thunar");

    // A default that is no file manager does not play its part, and one that is gone neither.
    const std::string list = "[Default Applications]\ninode/directory=";
    folder.write("etc/mimeapps.list", list + "editor.desktop;gone.desktop;pcmanfm.desktop\n");
    EXPECT_EQ(index().fileManager(), "pcmanfm");
    folder.write("config/xfce-mimeapps.list", list + "thunar.desktop\n");
    EXPECT_EQ(index().fileManager(), "thunar");
    std::filesystem::remove(folder.path() / "etc/mimeapps.list");
    folder.write("config/xfce-mimeapps.list",
                 "[Removed Associations]\ninode/directory=thunar.desktop\n");
    EXPECT_EQ(index().fileManager(), "pcmanfm") << "a more important list took it out";
}

TEST_F(InstalledApplicationsTest, ChoosesAmongEntriesThatShareAKey) {
    const auto entry = [](const char* id, const char* exec, bool visible) {
        return DesktopEntry{.id = id,
                            .name = "Same",
                            .unlocalizedName = "Same",
                            .exec = exec,
                            .execKey = "tool",
                            .startupWmClass = "Tool",
                            .isVisible = visible};
    };
    std::vector<DesktopEntry> entries = {entry("a.hidden", "tool", false),
                                         entry("a.long", "tool --preferences", true),
                                         entry("b.short", "tool %U", true)};
    const DesktopEntryIndex three(entries);
    EXPECT_EQ(three.withExecKey("tool").front()->id, "b.short");
    EXPECT_EQ(three.onlyVisibleWithName("same"), nullptr);
    EXPECT_EQ(three.onlyVisibleWithIdEnd("SHORT")->id, "b.short");
    EXPECT_EQ(three.onlyVisibleWithIdEnd("hidden"), nullptr);
    EXPECT_TRUE(three.withStartupWmClass("tool").empty());
    entries.push_back(entry("tool", "tool --a-very-long-command", false));
    const DesktopEntryIndex four(std::move(entries));
    EXPECT_EQ(four.withExecKey("tool").front()->id, "tool");
    EXPECT_EQ(four.withStartupWmClassIgnoringCase("TOOL").front()->id, "tool");
}

} // namespace
} // namespace calmora
