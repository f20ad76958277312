// SPDX-License-Identifier: MIT
#include "platform/linux/proc/ProcFiles.h"

#include "platform/linux/proc/ProcessReader.h"
#include "support/TempFolder.h"

namespace calmora {
namespace {

using namespace std::string_literals;

std::string statText(const std::string& name, const std::string& state, int threads,
                     const std::string& flags = "4194304") {
    return "4711 (" + name + ") " + state + " 815 4711 4711 0 -1 " + flags +
           " 100 0 0 0 7 3 0 0 20 0 " + std::to_string(threads) +
           " 0 987654321 1000 50 18446744073709551615 1 1 0\n";
}

TEST(ProcFiles, CountTheFieldsOfStatFromTheLastParenthesis) {
    for (const std::string& name : {"plain"s, "with space"s, ") R 1 1 1"s, "((("s, "a)b(c) S 5"s,
                                    "new\nline"s, ""s, "\xff\xfe"s}) {
        const auto stat = parseStat(statText(name, "S", 4));
        ASSERT_TRUE(stat) << name;
        EXPECT_EQ(stat->comm, name);
        EXPECT_EQ(stat->state, 'S');
        EXPECT_EQ(stat->parent, 815);
        EXPECT_EQ(stat->threads, 4);
        EXPECT_EQ(stat->startTime, 987654321U);
        EXPECT_FALSE(stat->isKernelThread);
    }
    EXPECT_TRUE(parseStat(statText("kworker/0:1", "I", 1, "69238880"))->isKernelThread);
}

TEST(ProcFiles, RefuseAStatThatIsCutShortAndTellAZombieFromADeadMainThread) {
    const std::string whole = statText("name", "S", 1);
    const std::size_t startTime = whole.find("987654321");
    for (std::size_t length = 0; length <= startTime; ++length) {
        EXPECT_FALSE(parseStat(whole.substr(0, length))) << length;
    }
    EXPECT_FALSE(parseStat(") ("));
    EXPECT_TRUE(parseStat(statText("x", "Z", 1))->isGone());
    EXPECT_FALSE(parseStat(statText("x", "Z", 2))->isGone());
    EXPECT_TRUE(parseStat(statText("x", "X", 0))->isGone());
    EXPECT_FALSE(parseStat(statText("x", "T", 1))->isGone());
}

TEST(ProcFiles, ReadUsersAndMemory) {
    const auto status = parseStatus("Name:\tUid:\nUid:\t1000\t0\t1000\t1000\nGid:\t5\t5\t5\t5\n"
                                    "VmRSS:\t  9000 kB\nRssAnon:\t    2048 kB\n"
                                    "RssFile:\t  6952 kB\nVmSwap:\t     512 kB\nThreads:\t1\n");
    ASSERT_TRUE(status);
    EXPECT_EQ(status->realUser, 1000U);
    EXPECT_EQ(status->rssAnon, 2048U * 1024);
    EXPECT_EQ(status->vmSwap, 512U * 1024);
    EXPECT_FALSE(parseStatus("Name:\tx\n"));
    EXPECT_FALSE(parseStatus("Uid:\t1000\n"));
    EXPECT_EQ(parseStatmAnonymousPages("12345 700 200 1 0 300 0\n"), 500U);
    EXPECT_EQ(parseStatmAnonymousPages("12345 200 201 1 0 300 0\n"), 0U);
    for (const char* none : {"0 0 0 0 0 0 0\n", "12345 700", ""}) {
        EXPECT_FALSE(parseStatmAnonymousPages(none)) << none;
    }
    const auto turnover = parseLoadavg("0.20 0.18 0.12 1/80 11206\n");
    EXPECT_EQ(turnover, (TaskTurnover{.last = 11206, .count = 80}));
    for (const char* none : {"0.00 0.00 0.00 0/0 0\n", "0.20 0.18 0.12 80 11206", "0.20", ""}) {
        EXPECT_FALSE(parseLoadavg(none)) << none;
    }
}

TEST(ProcFiles, FindTheControlGroupAndSplitArgumentsAtTheirNuls) {
    EXPECT_EQ(parseCgroup("0::/user.slice/app.slice/app-foo-1.scope\n"),
              "/user.slice/app.slice/app-foo-1.scope");
    EXPECT_EQ(parseCgroup("5:cpu,cpuacct:/\n1:name=systemd:/user.slice/x.scope\n0::/\n"),
              "/user.slice/x.scope");
    EXPECT_EQ(parseCgroup("4:memory:/docker\n"), "");
    using Words = std::vector<std::string>;
    EXPECT_EQ(parseCommandLine("xterm\0-class\0\0Foo Bar\0"s),
              (Words{"xterm", "-class", "", "Foo Bar"}));
    EXPECT_EQ(parseCommandLine("rewritten title\0\0\0\0"s), (Words{"rewritten title"}));
    EXPECT_EQ(parseCommandLine(""), Words{});
}

TEST(ProcFiles, PickWhatTellsOfTheLaunchAndTheSandbox) {
    const auto environment = parseLaunchEnvironment(
        "HOME=/root\0GIO_LAUNCHED_DESKTOP_FILE=/a/b.desktop\0GIO_LAUNCHED_DESKTOP_FILE_PID=42\0"
        "XAPPDIR=no\0APPDIR=/tmp/.mount_x\0APPIMAGE=/home/u/X.AppImage\0"
        "BAMF_DESKTOP_FILE_HINT=/c.desktop\0OLDPWD=/x\0PWD=/home/u\0CLASSPATH=a:b\0WINEPREFIX=/w"s);
    EXPECT_EQ(environment, (LaunchEnvironment{"/a/b.desktop", 42, "/c.desktop", "/tmp/.mount_x",
                                              "/home/u/X.AppImage", "/home/u", "a:b", "/w"}));
    EXPECT_EQ(parseLaunchEnvironment("GIO_LAUNCHED_DESKTOP_FILE_PID=4x2\0"s), LaunchEnvironment{});
    EXPECT_EQ(parseFlatpakInfo("[Application]\nname=org.gnome.Maps\nruntime=r\n\n[Instance]\n"
                               "instance-id=123\nname=not.this\n"),
              (FlatpakInfo{"org.gnome.Maps", "123"}));
    EXPECT_FALSE(parseFlatpakInfo("[Runtime]\nname=org.gnome.Platform\n"));
    EXPECT_FALSE(parseFlatpakInfo("[Application]\nname=org.gnome.Maps/../x\n"));
}

/// A proc file system of one process and the files that it may run.
class ProcessReaderTest : public testing::Test {
  protected:
    ProcessReaderTest() {
        folder.write("proc/7/stat", "7 (x) S 1 7 7 0 -1 0 0 0 0 0 0 0 0 0 20 0 1 0 99 0 0 0\n");
        folder.write("proc/7/cgroup", "0::/app.scope\n");
        folder.write("proc/7/status", "Uid:\t1000\t1000\t1000\t1000\n");
        for (const char* script : {"a/main.py", "b/main.py", "a/tool.py", "zip/__main__.py"}) {
            folder.write(script, "#!/usr/bin/python3\n");
        }
        folder.write("a/clock.odd", "#!" + path("odd") + " -x\n");
        folder.write("odd", "x");
        folder.write("odd (deleted)", "x");
        std::filesystem::create_symlink("a/tool.py", folder.path() / "link");
    }

    [[nodiscard]] std::string path(const std::string& name) const {
        return (folder.path() / name).string();
    }

    /// The details of a process of these arguments, which works in the folder `cwd` and was
    /// started by a shell in `pwd`.
    ProcessDetails details(const std::vector<std::string>& arguments, const std::string& executable,
                           const std::string& cwd, const std::string& pwd) const {
        std::string line;
        for (const std::string& word : arguments) {
            line += word + '\0';
        }
        folder.write("proc/7/cmdline", line);
        folder.write("proc/7/environ", "APPDIR=/mount\0PWD="s + path(pwd));
        for (const auto& [name, target] : {std::pair("exe", executable), {"cwd", path(cwd)}}) {
            const auto link = folder.path() / "proc/7" / name;
            std::filesystem::remove(link);
            if (!target.empty()) {
                std::filesystem::create_symlink(target, link);
            }
        }
        return ProcessReader(folder.path() / "proc").details(7).value();
    }

    TempFolder folder;
};

TEST_F(ProcessReaderTest, FindsTheFileThatTheArgumentsMean) {
    const struct {
        std::vector<std::string> arguments;
        const char* cwd;
        const char* pwd;
        /// Empty for none.
        const char* file;
    } cases[] = {
        {{"python3", path("link")}, "", "", "a/tool.py"},
        {{"python3", "tool.py"}, "a", "a", "a/tool.py"},
        {{"python3", "tool.py"}, "b", "a", "a/tool.py"}, // Left its folder.
        {{"python3", "tool.py"}, "a", "b", "a/tool.py"}, // Was started elsewhere.
        {{"python3", "main.py"}, "a", "b", ""},          // Either.
        {{"python3", "main.py"}, "a", "none", "a/main.py"},
        {{"python3", "other.py"}, "a", "b", ""},
        {{"python3", path("zip")}, "", "", "zip/__main__.py"},
        {{"python3", path("a")}, "", "", ""},
        {{"python3", "/usr"}, "", "", ""},
        {{"python3", "-m", "main.py"}, "a", "a", ""},
        {{"a title", path("a/main.py")}, "a", "a", ""},
    };

    for (const auto& [arguments, cwd, pwd, file] : cases) {
        const auto found = details(arguments, "/usr/bin/python3.11", cwd, pwd);
        EXPECT_EQ(found.commandPath.value_or(""), *file ? path(file) : "")
            << testing::PrintToString(arguments) << cwd;
        EXPECT_FALSE(found.runsScript);
    }
}

TEST_F(ProcessReaderTest, KnowsAnInterpreterByTheScriptThatStartsIt) {
    for (const auto& arguments : {std::vector<std::string>{"odd", path("a/clock.odd")},
                                  {"odd", "-x", path("a/clock.odd")},
                                  {"odd", "-x", "./clock.odd"}}) {
        const auto found = details(arguments, path("odd"), "a", "a");
        EXPECT_TRUE(found.runsScript);
        EXPECT_EQ(found.commandPath, path("a/clock.odd"));
        EXPECT_EQ(found.cgroup + found.environment.appDir, "/app.scope/mount");
    }
    // An editor that shows a script.
    EXPECT_FALSE(details({"editor", path("a/clock.odd")}, "/usr/bin/editor", "", "").commandPath);
    // What cannot be read is known by its arguments alone.
    EXPECT_EQ(details({path("odd")}, "", "", "").commandPath, path("odd"));
    EXPECT_FALSE(details({path("a")}, "", "", "").commandPath);
}

TEST_F(ProcessReaderTest, TakesTheMarkOfADeletedFileForNothingElse) {
    EXPECT_EQ(details({"x"}, path("gone") + " (deleted)", "", "").executable, path("gone"));
    EXPECT_EQ(details({"x"}, path("odd (deleted)"), "", "").executable, path("odd (deleted)"));
    EXPECT_FALSE(details({"x"}, path("a") + " (deleted)", "", "").executable);
}

} // namespace
} // namespace calmora
