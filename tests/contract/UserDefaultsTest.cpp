#include "fakes/FakeRunLoop.h"
#include "fakes/FakeUserDefaults.h"
#include "platform/linux/xdg/JsonUserDefaults.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

using Strings = std::vector<std::string>;

struct FakeStore {
    FakeUserDefaults defaults;
};

struct JsonStore {
    TempFolder folder;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    JsonUserDefaults defaults{folder.path() / "preferences.json", runLoop};
};

template <typename Store>
struct UserDefaultsContract : testing::Test {
    Store store;
    UserDefaults& defaults = store.defaults;
};

using Stores = testing::Types<FakeStore, JsonStore>;
TYPED_TEST_SUITE(UserDefaultsContract, Stores);

TYPED_TEST(UserDefaultsContract, AnswersWithRegisteredValuesUntilOneIsSet) {
    EXPECT_FALSE(this->defaults.boolean("b"));
    EXPECT_EQ(this->defaults.integer("i"), 0);
    EXPECT_FALSE(this->defaults.string("s"));
    EXPECT_FALSE(this->defaults.stringArray("a"));
    EXPECT_FALSE(this->defaults.value("b"));

    this->defaults.registerDefaults(
        {{"b", true}, {"i", std::int64_t{30}}, {"s", std::string("text")}, {"a", Strings{"x"}}});
    EXPECT_TRUE(this->defaults.boolean("b"));
    EXPECT_EQ(this->defaults.value("i"), DefaultsValue(std::int64_t{30}));

    this->defaults.set("b", false);
    this->defaults.set("i", std::int64_t{-9'000'000'000});
    this->defaults.set("s", std::string("\"quoted\"\n\xc3\xa9"));
    this->defaults.set("a", Strings{});
    EXPECT_FALSE(this->defaults.boolean("b"));
    EXPECT_EQ(this->defaults.integer("i"), -9'000'000'000);
    EXPECT_EQ(this->defaults.string("s"), "\"quoted\"\n\xc3\xa9");
    EXPECT_EQ(this->defaults.stringArray("a"), Strings{});

    this->defaults.remove("b");
    this->defaults.remove("never set");
    EXPECT_TRUE(this->defaults.boolean("b"));
}

TYPED_TEST(UserDefaultsContract, ReadsAnotherTypeAsTheRegisteredValue) {
    this->defaults.registerDefaults({{"b", true}, {"i", std::int64_t{30}}});
    this->defaults.set("b", std::int64_t{0});
    this->defaults.set("i", std::string("7"));
    this->defaults.set("s", Strings{"x"});
    this->defaults.set("a", std::string("x"));
    EXPECT_TRUE(this->defaults.boolean("b"));
    EXPECT_EQ(this->defaults.integer("i"), 30);
    EXPECT_FALSE(this->defaults.string("s"));
    EXPECT_FALSE(this->defaults.stringArray("a"));
    EXPECT_EQ(this->defaults.value("b"), DefaultsValue(std::int64_t{0}));
}

TYPED_TEST(UserDefaultsContract, NamesTheKeysThatAreSet) {
    this->defaults.registerDefaults({{"A_registered", true}});
    for (const char* key : {"A_2", "B", "A_10", "A", "A_gone", "a_small"}) {
        this->defaults.set(key, true);
    }
    this->defaults.remove("A_gone");
    EXPECT_EQ(this->defaults.keys("A_"), (Strings{"A_10", "A_2"}));
    EXPECT_EQ(this->defaults.keys(""), (Strings{"A", "A_10", "A_2", "B", "a_small"}));
}

} // namespace
} // namespace calmora
