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
    EXPECT_FALSE(
        confirmForceQuit(machine.alerts, machine.strings, "Mail\n<b>%@\u202E", Image{"mail"}));
    const auto& [all, single, one] = std::tie(
        machine.alerts.shown.at(0), machine.alerts.shown.at(1), machine.alerts.shown.at(2));
    EXPECT_EQ(all.messageText, "Do you want to force quit 3 selected apps?");
    EXPECT_EQ(single.messageText, "Do you want to force quit 1 selected apps?");
    EXPECT_EQ(one.messageText, "Do you want to force \"Mail <b>%@\" to quit?");
    EXPECT_EQ(all.informativeText, "You will lose any unsaved changes in these apps.");
    EXPECT_EQ(one.informativeText, "You will lose any unsaved changes.");
    EXPECT_FALSE(all.icon);
    EXPECT_EQ(one.icon, Image{"mail"});
    EXPECT_EQ(all.style, AlertStyle::critical);
    EXPECT_EQ(all.buttons.at(0).title + "|" + all.buttons.at(1).title, "Force Quit All|Cancel");
    EXPECT_TRUE(all.buttons.at(0).isDestructive && !all.buttons.at(1).isDestructive);
    EXPECT_EQ(one.buttons.at(0).title, "Force Quit");
}

} // namespace
} // namespace calmora
