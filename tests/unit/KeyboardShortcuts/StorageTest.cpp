#include "unit/KeyboardShortcuts/ShortcutsFixture.h"

namespace calmora {
namespace {

class StorageTest : public ShortcutsFixture {
  protected:
    using Lines = std::vector<std::string>;

    /// The names of the notifications, each with what was stored then.
    Lines changes;
    Subscription observer = notifications.observe(
        "KeyboardShortcuts_shortcutByNameDidChange", [this](const Notification& notification) {
            const auto* name = notification.info<ShortcutName>("name");
            changes.push_back(name ? name->rawValue + " " + stored(name->rawValue) : "nameless");
        });
};

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
    const std::string commandKChange = R"(a {"carbonKeyCode":40,"carbonModifiers":256})";
    EXPECT_EQ(changes, (Lines{commandKChange, commandKChange,
                              R"(a {"carbonKeyCode":1,"carbonModifiers":2048})", "a none"}));
}

} // namespace
} // namespace calmora
