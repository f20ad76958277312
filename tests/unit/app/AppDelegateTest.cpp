#include "app/AppDelegate.h"

#include "app/AppToolkit.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeUpdater.h"
#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace calmora {
namespace {

class AppDelegateTest : public testing::Test, protected AppToolkit {
  protected:
    AppDelegateTest() { fakes_.bundle.resources["MenuBarIcon.svg"] = "/share/MenuBarIcon.svg"; }

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

    void orderFrontAboutPanel() override { calls_ += "about "; }

    void terminate() override { calls_ += "terminate "; }

    /// The user has recorded ⌃⌥ with A, S and D for the three shortcuts.
    void recordShortcuts() {
        int key = 0;
        for (const std::string name : {"activateMenu", "quitAll", "forceQuitAll"}) {
            fakes_.defaults.set("KeyboardShortcuts_" + name,
                                "{\"carbonKeyCode\":" + std::to_string(key++) +
                                    ",\"carbonModifiers\":6144}");
        }
    }

    FakePlatform fakes_;
    FakeUserNotifications notifications_;
    FakeInputGate input_;
    NotificationCenter center_;
    FakeHotKeys hotKeys_;
    FakeKeyboardLayout layout_;
    KeyboardShortcuts shortcuts_{
        {fakes_.defaults, center_, hotKeys_, layout_, fakes_.strings, fakes_.text}};
    std::string calls_;
    FakePopover* popover_ = nullptr;
    FakeStatusItem* item_ = nullptr;
    AppDelegate delegate_{fakes_.defaults, std::make_unique<FakeUpdater>(),
                          *this,           fakes_.platform(),
                          shortcuts_,      notifications_,
                          input_};
    FakeUpdater& updater_ = static_cast<FakeUpdater&>(delegate_.updater());
};

TEST_F(AppDelegateTest, StartsWhenLaunchHasFinished) {
    delegate_.togglePopover(StatusEvent::leftMouseUp);
    delegate_.togglePopover(StatusEvent::rightMouseUp);
    delegate_.openPopover();
    EXPECT_EQ(calls_, "");
    recordShortcuts();
    delegate_.applicationDidFinishLaunching();
    EXPECT_EQ(calls_, "popover item ");
    EXPECT_EQ(popover_->size, (Size{360, 500}));
    EXPECT_EQ(item_->points, 19);
    ASSERT_TRUE(item_->image);
    EXPECT_EQ(item_->image->file, "/share/MenuBarIcon.svg");
    EXPECT_EQ(hotKeys_.calls->size(), 6U) << "three shortcuts and the handler";
    EXPECT_TRUE(fakes_.workspace.activated.hasListeners());
    EXPECT_EQ(fakes_.runLoop.timers(),
              std::vector<std::chrono::milliseconds>{std::chrono::minutes(1)});
}

TEST_F(AppDelegateTest, ClicksTogglePopoverOrOpenTheMenu) {
    fakes_.bundle.resources.clear();
    delegate_.applicationDidFinishLaunching();
    EXPECT_FALSE(item_->image) << "the glyph is missing";
    EXPECT_TRUE(hotKeys_.calls->empty()) << "no key is grabbed without a recorded shortcut";
    item_->action(StatusEvent::leftMouseUp);
    EXPECT_TRUE(popover_->isShown());
    EXPECT_EQ(popover_->anchors.back(), (Rect{1200, 0, 24, 24}));
    delegate_.openPopover();
    EXPECT_EQ(popover_->anchors.size(), 1U);
    item_->action(StatusEvent::leftMouseUp);
    item_->action(StatusEvent::rightMouseUp);
    EXPECT_FALSE(popover_->isShown());
    EXPECT_EQ(item_->opened.size(), 1U);

    item_->rectangle.reset();
    delegate_.openPopover();
    EXPECT_TRUE(popover_->isShown()) << "no status bar";
    EXPECT_FALSE(popover_->anchors.back());
}

TEST_F(AppDelegateTest, ShortcutsQuitTickedApplications) {
    recordShortcuts();
    delegate_.applicationDidFinishLaunching();
    for (const bool isShown : {true, false}) {
        hotKeys_.fire(1);
        EXPECT_EQ(popover_->isShown(), isShown);
    }
    hotKeys_.fire(3);
    EXPECT_TRUE(fakes_.alerts.shown.empty()) << "nothing runs";

    for (const ProcessId pid : {1, 2, 3}) {
        fakes_.workspace.launch({.pid = pid,
                                 .name = "App " + std::to_string(pid),
                                 .bundleIdentifier = "org.example." + std::to_string(pid)});
    }
    delegate_.settings().addToNeverQuit("org.example.2");
    hotKeys_.fire(3);
    ASSERT_EQ(fakes_.alerts.shown.size(), 1U);
    EXPECT_EQ(fakes_.alerts.shown[0].messageText, "Do you want to force quit 2 selected apps?");
    hotKeys_.fire(2);
    EXPECT_EQ(fakes_.workspace.terminateRequests, (std::vector<ProcessId>{1, 3}));
    EXPECT_EQ(fakes_.alerts.shown.size(), 1U) << "no question";
    EXPECT_EQ(input_.discards, 1) << "input made meanwhile is dropped";

    fakes_.workspace.launch({.pid = 4, .name = "App 4", .bundleIdentifier = "org.example.4"});
    fakes_.alerts.answers = {0};
    hotKeys_.fire(3);
    EXPECT_EQ(fakes_.workspace.forceRequests, std::vector<ProcessId>{4}) << "Cancel spared others";
    EXPECT_EQ(input_.discards, 2);
    EXPECT_FALSE(popover_->isShown());
}

TEST_F(AppDelegateTest, TheMenuEntriesWork) {
    delegate_.applicationDidFinishLaunching();
    updater_.canCheck = false;
    EXPECT_FALSE(item_->menu()[1].isEnabled);
    updater_.canCheck = true;
    const auto menu = item_->menu();
    std::string titles;
    for (const StatusMenuItem& entry : menu) {
        titles += entry.title + "|" + entry.keyEquivalent;
    }
    EXPECT_EQ(titles, "About Calmora|Check for Updates…||Quit Calmora|q");
    EXPECT_TRUE(menu[1].isEnabled);
    calls_.clear();
    menu[0].action();
    menu[1].action();
    menu[3].action();
    EXPECT_EQ(calls_, "about terminate ");
    EXPECT_EQ(updater_.checks, 1);
}

} // namespace
} // namespace calmora
