#include "platform/linux/proc/ProcFiles.h"

#include <gtest/gtest.h>

#include <string>

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

TEST(ProcFiles, RefuseAStatThatIsCutShort) {
    const std::string whole = statText("name", "S", 1);
    const std::size_t startTime = whole.find("987654321");
    for (std::size_t length = 0; length <= startTime; ++length) {
        EXPECT_FALSE(parseStat(whole.substr(0, length))) << length;
    }
    EXPECT_FALSE(parseStat(") ("));
}

TEST(ProcFiles, TellAZombieFromADeadMainThread) {
    EXPECT_TRUE(parseStat(statText("x", "Z", 1))->isGone());
    EXPECT_FALSE(parseStat(statText("x", "Z", 2))->isGone());
    EXPECT_TRUE(parseStat(statText("x", "X", 0))->isGone());
    EXPECT_FALSE(parseStat(statText("x", "T", 1))->isGone());
}

TEST(ProcFiles, ReadUsersAndMemoryOfStatus) {
    const auto status = parseStatus("Name:\tUid:\nUid:\t1000\t0\t1000\t1000\nGid:\t5\t5\t5\t5\n"
                                    "VmRSS:\t  9000 kB\nRssAnon:\t    2048 kB\n"
                                    "RssFile:\t  6952 kB\nVmSwap:\t     512 kB\nThreads:\t1\n");
    ASSERT_TRUE(status);
    EXPECT_EQ(status->realUser, 1000U);
    EXPECT_EQ(status->rssAnon, 2048U * 1024);
    EXPECT_EQ(status->vmSwap, 512U * 1024);
    EXPECT_FALSE(parseStatus("Name:\tx\n"));
    EXPECT_FALSE(parseStatus("Uid:\t1000\n"));
}

TEST(ProcFiles, TakeTheAnonymousPagesOfStatm) {
    EXPECT_EQ(parseStatmAnonymousPages("12345 700 200 1 0 300 0\n"), 500U);
    EXPECT_EQ(parseStatmAnonymousPages("12345 200 201 1 0 300 0\n"), 0U);
    EXPECT_FALSE(parseStatmAnonymousPages("0 0 0 0 0 0 0\n"));
    EXPECT_FALSE(parseStatmAnonymousPages("12345 700"));
    EXPECT_FALSE(parseStatmAnonymousPages(""));
}

TEST(ProcFiles, FindTheControlGroup) {
    EXPECT_EQ(parseCgroup("0::/user.slice/app.slice/app-foo-1.scope\n"),
              "/user.slice/app.slice/app-foo-1.scope");
    EXPECT_EQ(parseCgroup("5:cpu,cpuacct:/\n1:name=systemd:/user.slice/x.scope\n0::/\n"),
              "/user.slice/x.scope");
    EXPECT_EQ(parseCgroup("4:memory:/docker\n"), "");
}

TEST(ProcFiles, SplitArgumentsAtTheirNuls) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(parseCommandLine("xterm\0-class\0\0Foo Bar\0"s),
              (Words{"xterm", "-class", "", "Foo Bar"}));
    EXPECT_EQ(parseCommandLine("rewritten title\0\0\0\0"s), (Words{"rewritten title"}));
    EXPECT_EQ(parseCommandLine(""), Words{});
}

TEST(ProcFiles, PickTheVariablesThatTellOfTheLaunch) {
    const auto environment = parseLaunchEnvironment(
        "HOME=/root\0GIO_LAUNCHED_DESKTOP_FILE=/a/b.desktop\0GIO_LAUNCHED_DESKTOP_FILE_PID=42\0"
        "XAPPDIR=no\0APPDIR=/tmp/.mount_x\0APPIMAGE=/home/u/X.AppImage\0"
        "BAMF_DESKTOP_FILE_HINT=/c.desktop\0OLDPWD=/x\0PWD=/home/u\0CLASSPATH=a:b\0WINEPREFIX=/w"s);
    EXPECT_EQ(environment, (LaunchEnvironment{"/a/b.desktop", 42, "/c.desktop", "/tmp/.mount_x",
                                              "/home/u/X.AppImage", "/home/u", "a:b", "/w"}));
    EXPECT_EQ(parseLaunchEnvironment("GIO_LAUNCHED_DESKTOP_FILE_PID=4x2\0"s), LaunchEnvironment{});
}

TEST(ProcFiles, ReadTheSandboxOfAFlatpak) {
    EXPECT_EQ(parseFlatpakInfo("[Application]\nname=org.gnome.Maps\nruntime=r\n\n[Instance]\n"
                               "instance-id=123\nname=not.this\n"),
              (FlatpakInfo{"org.gnome.Maps", "123"}));
    EXPECT_FALSE(parseFlatpakInfo("[Runtime]\nname=org.gnome.Platform\n"));
    EXPECT_FALSE(parseFlatpakInfo("[Application]\nname=org.gnome.Maps/../x\n"));
}

} // namespace
} // namespace calmora
