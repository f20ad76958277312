#include "platform/linux/xdg/DesktopEntry.h"
#include "platform/linux/xdg/BaseDirectories.h"
#include "platform/linux/xdg/ExecKey.h"
#include "platform/linux/xdg/ExecResolver.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace calmora {
namespace {

using Words = std::vector<std::string>;

const Words german = {"de_AT", "de"};

TEST(DesktopEntry, TakesTheMostWantedLanguageWhateverTheOrder) {
    const std::string head = "[Desktop Entry]\nType=Application\n";
    for (const std::string lines : {"Name=Files\nName[de]=Dateien\nName[de_AT]=Akten\nName[fr]=F\n",
                                    "Name[de_AT]=Akten\nName[de]=Dateien\nName=Files\n"}) {
        const auto entry = parseDesktopEntry(head + lines, german);
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->name, "Akten");
        EXPECT_EQ(entry->unlocalizedName, "Files");
        EXPECT_EQ(parseDesktopEntry(head + lines, {})->name, "Files");
    }
}

TEST(DesktopEntry, ReadsOnlyItsOwnGroup) {
    const auto entry = parseDesktopEntry(
        "\xEF\xBB\xBF# comment\nName=Before\n[Desktop Entry]\r\n Type = Application\r\n"
        "Name = A\\sB\\\\C \r\nExec = env X=1 /opt/tool/run.sh --flag %U\nIcon=tool.png\n"
        "NoDisplay=true\nStartupWMClass=Tool\nCategories=Utility;FileManager;\nbroken line\n=x\n"
        "[Desktop Action New]\nName=New\nExec=other\nNoDisplay=false\n",
        german);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "A B\\C");
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
    EXPECT_EQ(execWords(""), Words{});
}

TEST(ExecKey, NamesTheProgramBehindWrappersAndInterpreters) {
    const std::vector<std::pair<Words, const char*>> cases = {
        {{"xterm", "-class", "Foo"}, "xterm"},
        {{"/usr/bin/python3.11", "/usr/bin/idle-python3.11"}, "idle-python3.11"},
        {{"/usr/bin/python3", "-W", "ignore", "-u", "/opt/a/tool.py", "x"}, "tool"},
        {{"python3", "-m", "idlelib"}, "idlelib"},
        {{"python3", "-c", "import x"}, ""},
        {{"/usr/bin/python3.11"}, ""},
        {{"-bash"}, ""},
        {{"env", "GDK_BACKEND=x11", "-u", "FOO", "/usr/bin/app"}, "app"},
        {{"nice", "-n", "5", "nohup", "app.bin"}, "app"},
        {{"java", "-Xmx1g", "-cp", "/a:/b", "-jar", "/usr/share/jedit/jedit.jar"}, "jedit"},
        {{"java", "-cp", "/a.jar", "org.foo.Main"}, "a"},
        {{"java", "-cp", "/a.jar:/b.jar", "org.foo.Main"}, ""},
        {{"R", "--no-save", "--file=/x/plot.R"}, "plot.R"},
        {{"qmlscene-qt6", "-I", "/usr", "/x/clock.qml"}, "clock.qml"},
        {{"deno", "run", "--allow-net", "chat.ts"}, "chat.ts"},
        {{"sh", "/x/love", "/x/notes"}, "love"},
        {{"box64", "/usr/bin/wine", "Z:\\a.exe"}, "a.exe"},
        {{"/usr/bin/flatpak", "run", "--command=gimp", "org.gimp.GIMP"}, ""},
        {{"/usr/lib/libreoffice/program/soffice.bin", "--calc"}, "soffice"},
        {{"/usr/lib/chromium/chromium --type=renderer --x"}, "chromium --type=renderer --x"},
        {{""}, ""},
        {{}, ""}};
    for (const auto& [command, key] : cases) {
        EXPECT_EQ(execKey(command), key) << testing::PrintToString(command);
    }
    for (const char* name : {"python3.13t", "python3.7dm", "python3-dbg", "qmlscene-qt6", "qml6",
                             "perl5.36-x86_64-linux-gnu", "node18", "guile-3.0", "octave-cli-7.3.0",
                             "ld-linux-x86-64.so.2", "gjs-console", "wine64", "bash"}) {
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
    for (const char* text : {"", "#!", "#! \n/bin/sh",
                             "\x7f"
                             "ELF",
                             "#!/usr/bin/env\n"}) {
        EXPECT_EQ(scriptInterpreterOf(text), "") << text;
    }
}

TEST(BaseDirectories, IgnoreRelativePathsAndAddTheExportsOnce) {
    const auto directories = BaseDirectories::fromEnvironment([](const char* name) -> const char* {
        const std::string_view variable = name;
        return variable == "HOME"            ? "/home/u"
               : variable == "XDG_DATA_HOME" ? "relative"
               : variable == "XDG_DATA_DIRS" ? "/usr/share/:/var/lib/flatpak/exports/share:rel:"
               : variable == "XDG_CURRENT_DESKTOP" ? "ubuntu:GNOME"
                                                   : nullptr;
    });
    EXPECT_EQ(directories.dataHome, "/home/u/.local/share");
    EXPECT_EQ(directories.configHome, "/home/u/.config");
    using Paths = std::vector<std::filesystem::path>;
    EXPECT_EQ(directories.dataDirs,
              (Paths{"/usr/share", "/var/lib/flatpak/exports/share",
                     "/home/u/.local/share/flatpak/exports/share", "/var/lib/snapd/desktop"}));
    EXPECT_EQ(directories.currentDesktops, (Words{"ubuntu", "gnome"}));
}

TEST(BaseDirectories, TryLocalesFromSpecialToGeneral) {
    EXPECT_EQ(localeCandidates("sr_YU.UTF-8@Latn"),
              (Words{"sr_YU@Latn", "sr_YU", "sr@Latn", "sr"}));
    EXPECT_EQ(localeCandidates("C.UTF-8"), Words{});
    const auto locales = messageLocales([](const char* name) {
        return name == std::string_view("LANGUAGE") ? "fr:de_AT"
               : name == std::string_view("LANG")   ? "en_GB.UTF-8"
                                                    : nullptr;
    });
    EXPECT_EQ(locales, (Words{"fr", "de_AT", "de", "en_GB", "en"}));
}

} // namespace
} // namespace calmora
