#include "fakes/FakeRunLoop.h"
#include "fakes/FakeUserDefaults.h"
#include "platform/linux/xdg/JsonUserDefaults.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

using Strings = std::vector<std::string>;

TEST(UserDefaultsContract, HoldsForTheFakeAndTheFile) {
    const TempFolder folder;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    JsonUserDefaults onDisk{folder.path() / "preferences.json", runLoop};
    FakeUserDefaults inMemory;
    for (UserDefaults* defaults : std::initializer_list<UserDefaults*>{&inMemory, &onDisk}) {
        defaults->registerDefaults({{"b", true}, {"registered", true}});
        defaults->registerDefaults({{"i", std::int64_t{30}}});
        EXPECT_TRUE(defaults->boolean("b"));
        EXPECT_EQ(defaults->value("i"), DefaultsValue(std::int64_t{30}));
        EXPECT_FALSE(defaults->string("s") || defaults->integer("j"));

        defaults->set("b", std::int64_t{0});
        defaults->set("i", std::string("7"));
        defaults->set("s", Strings{"x"});
        EXPECT_TRUE(defaults->boolean("b")) << "another type reads as the registered value";
        EXPECT_EQ(defaults->integer("i"), 30);
        EXPECT_FALSE(defaults->string("s"));
        EXPECT_EQ(defaults->value("b"), DefaultsValue(std::int64_t{0}));

        for (const char* key : {"A_2", "A_10", "A", "A_gone"}) {
            defaults->set(key, true);
        }
        defaults->remove("A_gone");
        defaults->remove("never set");
        EXPECT_EQ(defaults->keys("A_"), (Strings{"A_10", "A_2"}));
        EXPECT_EQ(defaults->keys(""), (Strings{"A", "A_10", "A_2", "b", "i", "s"}));
    }
}

} // namespace
} // namespace calmora
