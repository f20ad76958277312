#include "ui/ForceQuitConfirmation.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

TEST(ForceQuitConfirmation, AsksAndTakesOnlyTheFirstButtonForYes) {
    FakePlatform machine;
    machine.alerts.answers = {0, 1};
    EXPECT_TRUE(confirmForceQuitAll(machine.alerts, machine.strings, 3));
    EXPECT_FALSE(
        confirmForceQuit(machine.alerts, machine.strings, "Mail\n<b>%@\u202E", Image{"mail"}));
    const Alert& all = machine.alerts.shown.at(0);
    const Alert& one = machine.alerts.shown.at(1);
    EXPECT_EQ(all.messageText, "Do you want to force quit 3 selected apps?");
    EXPECT_EQ(one.messageText, "Do you want to force \"Mail <b>%@\" to quit?");
    EXPECT_EQ(one.icon, Image{"mail"});
    EXPECT_EQ(all.style, AlertStyle::critical);
    EXPECT_EQ(all.buttons.at(0).title + "|" + all.buttons.at(1).title, "Force Quit All|Cancel");
    EXPECT_TRUE(all.buttons.at(0).isDestructive && !all.buttons.at(1).isDestructive);
}

} // namespace
} // namespace calmora
