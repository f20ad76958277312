// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/JsonUserDefaults.h"
#include "fakes/FakeRunLoop.h"
#include "support/FileDescriptor.h"
#include "support/TempFolder.h"

#include <fcntl.h>
#include <sys/file.h>
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

TEST_F(JsonUserDefaultsTest, KeepsForeignValuesAsTheyAreAndReadsRegisteredDefaultsForThem) {
    const std::string deep(20'000, '[');
    const std::string foreign =
        R"("deep": )" + deep + R"("]}\"")" + std::string(deep.size(), ']') +
        R"(, "huge": [-1e999, {"b" : 1.50}], "big": 18446744073709551615, "list": ["a", 1])";
    folder.write("calmora/preferences.json",
                 "\xef\xbb\xbf{\"flag\": \"true\", \"count\": 1e999, \"name\": null, " + foreign +
                     "}");
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
    const std::string written = TempFolder::read(file);
    EXPECT_EQ(written.find("\"n\""), std::string::npos);
    EXPECT_LT(written.size(), 2 * deep.size() + 300);
    const auto before = readMembers("{" + foreign + "}");
    const auto after = readMembers(written);
    ASSERT_TRUE(before && after);
    EXPECT_TRUE(std::ranges::includes(*after, *before));
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
    for (const std::string damaged :
         {"{\"a\": tru", "[1, 2]", "\xff\xfe\x00", "null", "{\"a\": 1,}", "{\"a\": 1} {}",
          "{\"a\": [}]}", "{a: 1}", "{\"a\"}", "{1: 2}", "{\"a\": \"\xff\"}", "{,}", "{\"a\\\"}"}) {
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

TEST_F(JsonUserDefaultsTest, WritesEverythingAgainWhenTheFileIsDamagedEmptiedOrDeletedMeanwhile) {
    for (const std::string left : {"", " \n", "{", "deleted"}) {
        testing::internal::CaptureStderr();
        folder.write("calmora/preferences.json", R"({"foreign": {}})");
        JsonUserDefaults defaults(file, loop);
        defaults.set("first", true);
        loop.turn();
        folder.write("calmora/preferences.json", left);
        if (left == "deleted") {
            std::filesystem::remove(file);
        }
        defaults.set("second", true);
        loop.turn();
        EXPECT_EQ(testing::internal::GetCapturedStderr().empty(), left != "{")
            << "an empty file is no loss to speak of";
        const JsonUserDefaults again(file, loop);
        EXPECT_TRUE(again.boolean("first") && again.boolean("second")) << left;
        EXPECT_EQ(again.keys("for"), Strings{"foreign"}) << left;
    }
}

TEST_F(JsonUserDefaultsTest, ReportsAFileThatItCannotUseAndTriesAgain) {
    const auto target = folder.path() / "on another disk/preferences.json";
    const std::function<void()> obstacles[] = {
        [&] { std::filesystem::create_directory(file); },
        [&] { ASSERT_EQ(mkfifo(file.c_str(), 0600), 0); },
        [&] { std::ofstream(file).seekp(16 * 1024 * 1024) << "{}"; },
        [&] { std::filesystem::create_symlink(file, file); },
        [&] { std::filesystem::create_symlink(target, file); },
    };
    std::filesystem::create_directory(file.parent_path());
    for (const auto& putInTheWay : obstacles) {
        putInTheWay();
        testing::internal::CaptureStderr();
        JsonUserDefaults defaults(file, loop);
        int changes = defaults.unusableFile() ? 1 : 0;
        const Subscription token = defaults.onUsabilityChanged([&] { ++changes; });
        for (const char* key : {"a", "b"}) {
            defaults.set(key, true);
            loop.turn();
        }
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::ranges::count(said, '\n'), 1) << said;
        EXPECT_EQ(defaults.unusableFile(), file.string());
        std::filesystem::remove(file);
        loop.advance(JsonUserDefaults::retryInterval);
        EXPECT_EQ(defaults.unusableFile(), std::nullopt) << said;
        EXPECT_EQ(changes, 2);
        EXPECT_TRUE(JsonUserDefaults(file, loop).boolean("a"));
        std::filesystem::remove(file);
    }
}

TEST_F(JsonUserDefaultsTest, RemovesWhatKilledProcessesLeft) {
    const auto left = folder.write("calmora/.preferences.json.calmora-x1Y2z3", "{");
    const auto used = folder.write("calmora/.preferences.json.calmora-used00", "{");
    const auto foreign = folder.write("calmora/.preferences.json.x1Y2z3", "{");
    const FileDescriptor writer(open(used.c_str(), O_RDONLY));
    ASSERT_EQ(flock(writer.get(), LOCK_EX), 0);
    const JsonUserDefaults defaults(file, loop);
    EXPECT_FALSE(std::filesystem::exists(left));
    EXPECT_TRUE(std::filesystem::exists(used) && std::filesystem::exists(foreign));
}

} // namespace
} // namespace calmora
