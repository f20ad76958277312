#include "app/AppDelegate.h"

#include "app/AppToolkit.h"
#include "autoquit/AutoQuitManager.h"
#include "fakes/FakeInputGate.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeUserNotifications.h"

#include <gtest/gtest.h>

#include <string>

namespace calmora {
namespace {

class FakeUpdater final : public Updater {
  public:
    FakeUpdater(bool& canCheck, std::string& calls) : canCheck_(canCheck), calls_(calls) {}

    [[nodiscard]] bool canCheckForUpdates() const override { return canCheck_; }

    void checkForUpdates() override { calls_ += "check "; }

    [[nodiscard]] std::optional<std::string> unavailableReason() const override { return {}; }

    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return false; }

    void setAutomaticallyChecksForUpdates(bool) override {}

  private:
    bool& canCheck_;
    std::string& calls_;
};

class AppDelegateTest : public testing::Test, protected AppToolkit {
  protected:
    AppDelegateTest() {
        fakes_.bundle.resources["MenuBarIcon.svg"] = "/share/MenuBarIcon.svg";
        fakes_.bundle.resources["MenuBarIcon.png"] = "/share/MenuBarIcon.png";
    }

    std::unique_ptr<Popover> makePopover(AppSettings& settings) override {
        EXPECT_EQ(&settings, &delegate_.settings());
        auto popover = std::make_unique<FakePopover>();
        popover_ = popover.get();
        calls_ += "popover ";
        return popover;
    }

    std::unique_ptr<StatusItem> makeStatusItem() override {
        auto item = std::make_unique<FakeStatusItem>();
        item->rectangle = Rect{1200, 0, 24, 24};
        item_ = item.get();
        calls_ += "item ";
        return item;
    }

    std::unique_ptr<AutoQuitManager> makeAutoQuitManager(AppSettings& settings) override {
        EXPECT_EQ(&settings, &delegate_.settings());
        calls_ += "auto-quit ";
        return std::make_unique<AutoQuitManager>(settings, fakes_.platform(), notifications_,
                                                 input_);
    }

    void orderFrontAboutPanel() override { calls_ += "about "; }

    void terminate() override { calls_ += "terminate "; }

    FakePlatform fakes_;
    FakeUserNotifications notifications_;
    FakeInputGate input_;
    bool canCheck_ = false;
    std::string calls_;
    FakePopover* popover_ = nullptr;
    FakeStatusItem* item_ = nullptr;
    AppDelegate delegate_{fakes_.defaults, std::make_unique<FakeUpdater>(canCheck_, calls_), *this,
                          fakes_.bundle, fakes_.strings};
};

TEST_F(AppDelegateTest, NothingHappensBeforeLaunchHasFinished) {
    delegate_.togglePopover(StatusEvent::leftMouseUp);
    delegate_.togglePopover(StatusEvent::rightMouseUp);
    delegate_.openPopover();
    EXPECT_EQ(calls_, "");
    delegate_.applicationDidFinishLaunching();
    EXPECT_EQ(calls_, "popover item auto-quit ");
    EXPECT_EQ(popover_->size, (Size{360, 500}));
    EXPECT_EQ(item_->points, 19);
    ASSERT_TRUE(item_->image);
    EXPECT_EQ(item_->image->file, "/share/MenuBarIcon.svg");
}

TEST_F(AppDelegateTest, WatchesForIdleApplicationsFromTheLaunchOn) {
    fakes_.workspace.launch({.pid = 1, .bundleIdentifier = "org.example.Idle"});
    fakes_.workspace.activate(1);
    delegate_.applicationDidFinishLaunching();
    fakes_.runLoop.advance(std::chrono::minutes(20));
    EXPECT_TRUE(fakes_.workspace.terminateRequests.empty());
    delegate_.settings().setAutoQuitMinutes(15);
    delegate_.settings().setAutoQuitEnabled(true);
    fakes_.runLoop.advance(std::chrono::minutes(1));
    EXPECT_EQ(fakes_.workspace.terminateRequests, std::vector<ProcessId>{1});
}

TEST_F(AppDelegateTest, AMissingGlyphLeavesTheItemUsable) {
    fakes_.bundle.resources.clear();
    delegate_.applicationDidFinishLaunching();
    EXPECT_FALSE(item_->image);
    item_->action(StatusEvent::leftMouseUp);
    EXPECT_TRUE(popover_->isShown());
}

TEST_F(AppDelegateTest, ClicksTogglePopoverOrOpenTheMenu) {
    delegate_.applicationDidFinishLaunching();
    item_->action(StatusEvent::leftMouseUp);
    EXPECT_TRUE(popover_->isShown());
    EXPECT_EQ(popover_->anchors.back(), (Rect{1200, 0, 24, 24}));
    delegate_.openPopover();
    EXPECT_EQ(popover_->anchors.size(), 1U);
    item_->action(StatusEvent::leftMouseUp);
    EXPECT_FALSE(popover_->isShown());

    item_->action(StatusEvent::rightMouseUp);
    EXPECT_FALSE(popover_->isShown());
    EXPECT_EQ(item_->opened.size(), 1U);

    item_->rectangle.reset();
    delegate_.openPopover();
    EXPECT_TRUE(popover_->isShown()) << "no status bar";
    EXPECT_FALSE(popover_->anchors.back());
}

TEST_F(AppDelegateTest, TheMenuHasFourEntriesThatDoWhatTheySay) {
    delegate_.applicationDidFinishLaunching();
    auto menu = item_->menu();
    ASSERT_EQ(menu.size(), 4U);
    EXPECT_EQ(menu[0].title, "About Calmora");
    EXPECT_EQ(menu[1].title, "Check for Updates…");
    EXPECT_FALSE(menu[1].isEnabled);
    EXPECT_EQ(menu[2].title, "");
    EXPECT_EQ(menu[3].title, "Quit Calmora");
    EXPECT_EQ(menu[3].keyEquivalent, "q");
    canCheck_ = true;
    menu = item_->menu();
    EXPECT_TRUE(menu[1].isEnabled);
    calls_.clear();
    menu[0].action();
    menu[1].action();
    menu[3].action();
    EXPECT_EQ(calls_, "about check terminate ");
}

} // namespace
} // namespace calmora
