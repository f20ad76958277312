#include "unit/KeyboardShortcuts/ShortcutsFixture.h"

namespace calmora {
namespace {

class StorageTest : public ShortcutsFixture {
  protected:
    using Lines = std::vector<std::string>;

    /// The names of the notifications since the last call, each with what was stored then.
    Lines takeChanges() { return std::exchange(changes, {}); }

    Lines changes;
    Subscription observer = notifications.observe(
        "KeyboardShortcuts_shortcutByNameDidChange", [this](const Notification& notification) {
            const auto* name = notification.info<ShortcutName>("name");
            changes.push_back(name ? name->rawValue + " " + stored(name->rawValue) : "nameless");
        });
};

constexpr const char* commandKText = R"({"carbonKeyCode":40,"carbonModifiers":256})";
constexpr const char* optionSText = R"({"carbonKeyCode":1,"carbonModifiers":2048})";

TEST_F(StorageTest, SettingReplacesStoresAndNotifies) {
    const auto name = shortcuts.name("a");
    shortcuts.setShortcut({}, name);
    EXPECT_TRUE(changes.empty() && defaults.writes.empty() && hotKeys.takeCalls().empty());

    shortcuts.setShortcut(commandK, name);
    shortcuts.setShortcut(commandK, name);
    shortcuts.setShortcut(optionS, name);
    shortcuts.setShortcut({}, name);
    EXPECT_EQ(hotKeys.takeCalls(),
              (Lines{"register 40/256 as 1", "install", "-raw", "+hot", "release 1",
                     "register 40/256 as 2", "release 2", "register 1/2048 as 3", "release 3"}));
    const std::string commandKChange = std::string("a ") + commandKText;
    EXPECT_EQ(takeChanges(),
              (Lines{commandKChange, commandKChange, std::string("a ") + optionSText, "a none"}));
}

TEST_F(StorageTest, InvalidValuesReadAsNone) {
    const auto name = shortcuts.name("a", std::nullopt);
    const DefaultsValue rows[] = {false, true, std::int64_t{40}, std::string("corrupt"),
                                  std::vector<std::string>{commandKText}};
    for (const auto& value : rows) {
        store("a", value);
        EXPECT_EQ(shortcuts.getShortcut(name), std::nullopt);
        shortcuts.setShortcut({}, name);
        EXPECT_EQ(defaults.stored.at("KeyboardShortcuts_a"), value);
        EXPECT_TRUE(takeChanges().empty());
        shortcuts.setShortcut(optionS, name);
        EXPECT_EQ(stored("a"), optionSText);
        takeChanges();
    }
    store("a", commandKText);
    EXPECT_EQ(shortcuts.getShortcut(name), commandK) << "written by someone else";
}

} // namespace
} // namespace calmora
