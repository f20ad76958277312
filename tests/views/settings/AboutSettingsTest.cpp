#include "fakes/FakeUpdater.h"
#include "settings/AboutSettingsView.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>

namespace calmora {
namespace {

QString textOf(const AboutSettingsView& pane, const char* name) {
    return pane.findChild<QLabel*>(name)->text();
}

TEST(AboutSettings, ShowsWhatItKnows) {
    FakeUpdater updater;
    const AboutSettingsView bare(updater, {}, {});
    EXPECT_TRUE(textOf(bare, "version").contains("1.0.0"));
    EXPECT_EQ(bare.findChild<QLabel*>("icon"), nullptr);

    Image icon;
    icon.file = SOURCE_FOLDER "/resources/icons/AppIcon.svg";
    const AboutSettingsView full(updater, icon, "2.3.4");
    EXPECT_TRUE(textOf(full, "version").contains("2.3.4"));
    const QPixmap picture = full.findChild<QLabel*>("icon")->pixmap();
    EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(96, 96));
    EXPECT_EQ(picture.toImage().pixelColor(0, 0).alpha(), 0) << "round corners";
}

TEST(AboutSettings, TheButtonFollowsTheUpdater) {
    FakeUpdater updater;
    updater.canCheck = false;
    const AboutSettingsView pane(updater, {}, {});
    auto& button = *pane.findChild<QAbstractButton*>("checkForUpdates");
    EXPECT_EQ(button.text(), "Check for Updates…");
    button.click();
    EXPECT_EQ(updater.checks, 0);
    updater.setCanCheck(true);
    button.click();
    EXPECT_EQ(updater.checks, 1);
    updater.setCanCheck(false);
    EXPECT_FALSE(button.isEnabled());
}

} // namespace
} // namespace calmora
