#include "ui/ForceQuitConfirmation.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

TEST(ForceQuitConfirmation, AsksAndTakesOnlyTheFirstButtonForYes) {
    FakePlatform machine;
    machine.alerts.answers = {0, 1};
    EXPECT_TRUE(confirmForceQuitAll(machine.alerts, machine.strings, 3));
    EXPECT_FALSE(confirmForceQuitAll(machine.alerts, machine.strings, 1));
    const Alert& all = machine.alerts.shown[0];
    EXPECT_EQ(all.messageText, "Do you want to force quit 3 selected apps?");
    EXPECT_EQ(all.informativeText, "You will lose any unsaved changes in these apps.");
    EXPECT_EQ(all.style, AlertStyle::critical);
    EXPECT_FALSE(all.icon);
    ASSERT_EQ(all.buttons.size(), 2U);
    EXPECT_EQ(all.buttons[0].title, "Force Quit All");
    EXPECT_TRUE(all.buttons[0].isDestructive);
    EXPECT_EQ(all.buttons[1].title, "Cancel");
    EXPECT_FALSE(all.buttons[1].isDestructive);
    EXPECT_EQ(machine.alerts.shown[1].messageText, "Do you want to force quit 1 selected apps?");

    const Image icon{.themeName = "mail", .file = {}, .pixels = nullptr};
    EXPECT_FALSE(confirmForceQuit(machine.alerts, machine.strings, "Mail %@", icon));
    const Alert& one = machine.alerts.shown[2];
    EXPECT_EQ(one.messageText, "Do you want to force \"Mail %@\" to quit?");
    EXPECT_EQ(one.informativeText, "You will lose any unsaved changes.");
    EXPECT_EQ(one.icon, icon);
    EXPECT_EQ(one.buttons.at(0).title, "Force Quit");
}

} // namespace
} // namespace calmora
