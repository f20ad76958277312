// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "app/AppToolkit.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeLauncher.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeUpdater.h"
#include "fakes/FakeUse.h"
#include "platform/NotificationCenter.h"

namespace calmora {
namespace {

class AppDelegateTest : public testing::Test, protected AppToolkit {
  protected:
    std::unique_ptr<Popover> makePopover(AppSettings& settings, ExtraSettings&,
                                         QuitTogether& together) override {
        EXPECT_EQ(&settings, &delegate_.settings());
        together_ = &together;
        auto popover = std::make_unique<FakePopover>();
        popover_ = popover.get();
        return popover;
    }

    std::unique_ptr<StatusItem> makeStatusItem() override {
        auto item = std::make_unique<FakeStatusItem>();
        statusItem_ = item.get();
        return item;
    }

    void orderFrontAboutPanel() override {}

    void terminate() override {}

    FakePlatform fakes_;
    FakeUserNotifications notifications_;
    FakeInputGate input_;
    FakeUseSources uses_;
    FakeAwayTime away_;
    NotificationCenter center_;
    FakeHotKeys hotKeys_;
    FakeKeyboardLayout layout_;
    KeyboardShortcuts shortcuts_{
        {fakes_.defaults, center_, hotKeys_, layout_, fakes_.strings, fakes_.text}};
    FakeLauncher launcher_;
    FakePopover* popover_ = nullptr;
    QuitTogether* together_ = nullptr;
    FakeStatusItem* statusItem_ = nullptr;
    AppDelegate delegate_{{fakes_.defaults, *this, fakes_.platform(), launcher_, shortcuts_,
                           notifications_, input_, uses_, away_},
                          std::make_unique<FakeUpdater>()};
};

TEST_F(AppDelegateTest, ShortcutsQuitTickedApplications) {
    std::int64_t key = 0;
    for (const char* name : {"activateMenu", "quitAll", "forceQuitAll"}) {
        shortcuts_.setShortcut(Shortcut{key++, CarbonModifiers::control}, shortcuts_.name(name));
    }
    delegate_.openPopover();
    delegate_.applicationDidFinishLaunching();
    for (const bool isShown : {true, false}) {
        hotKeys_.fire(1);
        EXPECT_EQ(popover_->isShown(), isShown);
        EXPECT_EQ(statusItem_->isPopoverShown, isShown);
    }
    delegate_.togglePopover(StatusEvent::leftMouseUp);
    delegate_.togglePopover(StatusEvent::rightMouseUp);
    EXPECT_EQ(statusItem_->wasPopoverShownAtMenu, false) << "it closes before the menu opens";
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

TEST_F(AppDelegateTest, ReopensWhatTheUsersLastQuitEnded) {
    delegate_.applicationDidFinishLaunching();
    const auto menu = [this] {
        std::string titles;
        for (const StatusMenuItem& item : statusItem_->buildMenu()) {
            titles += (item.isEnabled ? "" : "!") + item.title + '|';
        }
        return titles;
    };
    const std::string usual = "About Calmora|Check for Updates…||Quit Calmora|";
    const auto quitTwo = [this](const char* first) {
        ProcessId pid = 0;
        for (const char* name : {first, "Tom & _"}) {
            fakes_.workspace.launch({.pid = ++pid, .name = name, .desktopId = name});
        }
        EXPECT_EQ(delegate_.quitAll(false).ended, 2U);
    };

    quitTwo("Off");
    EXPECT_EQ(menu(), usual) << "nothing is kept, nor offered, before it is switched on";
    delegate_.extras().quitsTogether.set(true);
    EXPECT_EQ(menu(), "!Reopen||" + usual);
    quitTwo("On");
    EXPECT_EQ(menu(), "Reopen 2 Applications||" + usual);
    launcher_.unavailable = {"On"};
    quitTwo("On");
    EXPECT_EQ(menu(), "Reopen Tom & _||" + usual);
    statusItem_->buildMenu().front().action();
    EXPECT_EQ(launcher_.launched, std::vector<std::string>{"Tom & _"});
    EXPECT_EQ(menu(), "!Reopen||" + usual);
    together_->begin({{.pid = 9}}, false);
    delegate_.extras().resetToDefaults();
    EXPECT_FALSE(together_->isUnderWay() || together_->result())
        << "switched off, it shows nothing";
}

} // namespace
} // namespace calmora
