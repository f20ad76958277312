// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/JsonUserDefaults.h"
#include "fakes/FakeRunLoop.h"
#include "support/TempFolder.h"

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>

namespace calmora {
namespace {

using Strings = std::vector<std::string>;

class JsonUserDefaultsTest : public testing::Test {
  protected:
    TempFolder folder;
    std::filesystem::path file = folder.path() / "calmora/preferences.json";
    FakeClock clock;
    FakeRunLoop loop{clock};

    static unsigned modeOf(const std::filesystem::path& of) {
        return static_cast<unsigned>(std::filesystem::status(of).permissions());
    }
};

TEST_F(JsonUserDefaultsTest, KeepsEachValueWithItsType) {
    {
        JsonUserDefaults defaults(file, loop);
        defaults.set("yes", true);
        defaults.set("number", std::int64_t{-5});
        defaults.set("text", std::string("Grüße \"\\\n"));
        defaults.set("list", Strings{"a", ""});
        defaults.set("broken", std::string("a\xff"));
        EXPECT_FALSE(std::filesystem::exists(file));
        loop.turn();
        EXPECT_TRUE(std::filesystem::exists(file));
    }
    const JsonUserDefaults again(file, loop);
    EXPECT_EQ(again.value("yes"), DefaultsValue(true));
    EXPECT_EQ(again.value("number"), DefaultsValue(std::int64_t{-5}));
    EXPECT_EQ(again.string("text"), "Grüße \"\\\n");
    EXPECT_EQ(again.value("list"), DefaultsValue(Strings{"a", ""}));
    EXPECT_EQ(again.string("broken"), "a\xef\xbf\xbd");
    EXPECT_EQ(modeOf(file), 0600U);
}

TEST_F(JsonUserDefaultsTest, ReadsTheRegisteredDefaultForAnotherTypeAndNeverWritesIt) {
    folder.write("calmora/preferences.json",
                 R"({"flag": "true", "count": 1.5, "big": 18446744073709551615, "list": ["a", 1],
                     "name": null})");
    JsonUserDefaults defaults(file, loop);
    defaults.registerDefaults({{"flag", true},
                               {"count", std::int64_t{7}},
                               {"big", std::int64_t{8}},
                               {"list", Strings{"d"}},
                               {"name", std::string("n")}});
    EXPECT_TRUE(defaults.boolean("flag") && defaults.string("flag") == "true");
    EXPECT_TRUE(defaults.integer("count") == 7 && defaults.integer("big") == 8);
    EXPECT_EQ(defaults.value("list"), DefaultsValue(Strings{"d"}));
    EXPECT_EQ(defaults.string("name"), "n");
    defaults.set("other", false);
    EXPECT_TRUE(defaults.flush());
    EXPECT_EQ(TempFolder::read(file).find("\"n\""), std::string::npos);
    EXPECT_NE(TempFolder::read(file).find("18446744073709551615"), std::string::npos);
}

TEST_F(JsonUserDefaultsTest, MergesItsKeysIntoTheFileAsItIsNow) {
    JsonUserDefaults defaults(file, loop);
    defaults.set("ours", true);
    defaults.set("dropped", true);
    loop.turn();
    folder.write("calmora/preferences.json",
                 R"({"ours": false, "theirs": {"deep": [1, 2.5]}, "dropped": 1})");
    defaults.set("more", std::int64_t{1});
    defaults.remove("dropped");
    defaults.set("more_2", true);
    loop.turn();
    JsonUserDefaults again(file, loop);
    EXPECT_EQ(again.value("ours"), DefaultsValue(false));
    EXPECT_EQ(again.value("more"), DefaultsValue(std::int64_t{1}));
    EXPECT_EQ(again.keys("m"), (Strings{"more", "more_2"}));
    EXPECT_EQ(again.keys(""), (Strings{"more", "more_2", "ours", "theirs"}));
    EXPECT_NE(TempFolder::read(file).find("2.5"), std::string::npos);
}

TEST_F(JsonUserDefaultsTest, KeepsADamagedFileAside) {
    for (const std::string damaged : {"{\"a\": tru", "[1, 2]", "\xff\xfe\x00", "null"}) {
        folder.write("calmora/preferences.json", damaged);
        testing::internal::CaptureStderr();
        JsonUserDefaults defaults(file, loop);
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
        EXPECT_FALSE(std::filesystem::exists(file));
        bool isKept = false;
        for (const auto& kept : std::filesystem::directory_iterator(file.parent_path())) {
            isKept = isKept || (kept.path().string().find(".damaged-20") != std::string::npos &&
                                said.find(kept.path().string()) != std::string::npos &&
                                TempFolder::read(kept.path()) == damaged);
        }
        EXPECT_TRUE(isKept) << said;
        defaults.set("a", true);
        EXPECT_TRUE(defaults.flush());
        EXPECT_TRUE(JsonUserDefaults(file, loop).boolean("a"));
    }
}

TEST_F(JsonUserDefaultsTest, WritesEverythingAgainWhenTheFileIsDamagedOrEmptiedMeanwhile) {
    for (const std::string left : {"", " \n", "{"}) {
        testing::internal::CaptureStderr();
        folder.write("calmora/preferences.json", left == "{" ? "{}" : left);
        JsonUserDefaults defaults(file, loop);
        defaults.set("first", true);
        loop.turn();
        folder.write("calmora/preferences.json", left);
        defaults.set("second", true);
        loop.turn();
        EXPECT_EQ(testing::internal::GetCapturedStderr().empty(), left != "{")
            << "an empty file is no loss to speak of";
        const JsonUserDefaults again(file, loop);
        EXPECT_TRUE(again.boolean("first") && again.boolean("second")) << left;
    }
}

TEST_F(JsonUserDefaultsTest, NeverCutsTheOldFileWhenTheDiskIsFull) {
    JsonUserDefaults defaults(file, loop);
    defaults.set("old", std::string(100, 'o'));
    loop.turn();
    const std::string before = TempFolder::read(file);
    // A limit on the size of files ends a write half way, as a full disk does.
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = limit;
    small.rlim_cur = 150;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    defaults.set("new", std::string(100, 'n'));
    const bool isWritten = defaults.flush();
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(isWritten);
    EXPECT_EQ(TempFolder::read(file), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(file.parent_path()), {}), 1);
    EXPECT_EQ(defaults.string("new"), std::string(100, 'n'));
    // There is room again: the next change takes it along.
    defaults.set("next", true);
    loop.turn();
    EXPECT_EQ(JsonUserDefaults(file, loop).string("new"), std::string(100, 'n'));
}

TEST_F(JsonUserDefaultsTest, WritesThroughALinkAndKeepsPermissions) {
    const auto target = folder.write("dotfiles/calmora.json", "{}");
    chmod(target.c_str(), 0640);
    std::filesystem::create_directories(file.parent_path());
    std::filesystem::create_symlink("../dotfiles/calmora.json", file);
    {
        JsonUserDefaults defaults(file, loop);
        defaults.set("a", true);
    }
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_NE(TempFolder::read(target).find("\"a\""), std::string::npos);
    EXPECT_EQ(modeOf(target), 0640U);
}

} // namespace
} // namespace calmora
