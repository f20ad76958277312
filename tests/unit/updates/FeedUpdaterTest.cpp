#include "updates/FeedUpdater.h"

#include "fakes/FakeDesktop.h"
#include "fakes/FakePlatform.h"
#include "updates/UpdatePresenter.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace calmora {
namespace {

using namespace std::chrono_literals;

struct FakeSource final : ReleaseSource {
    Subscription fetch(std::function<void(const ReleaseList&)> done) override {
        ++fetches;
        waiting = std::move(done);
        return Subscription([this] { waiting = nullptr; });
    }

    void answer(const ReleaseList& list) {
        const auto done = waiting;
        ASSERT_TRUE(done);
        done(list);
    }

    std::function<void(const ReleaseList&)> waiting;
    int fetches = 0;
};

struct FakePresenter final : UpdatePresenter {
    void show(const UpdateReport& report) override { shown.push_back(report); }

    Subscription onClosed(std::function<void()> handler) override {
        return closed.connect(std::move(handler));
    }

    std::vector<UpdateReport> shown;
    Signal<> closed;
};

struct FeedUpdaterTest : testing::Test {
    static ReleaseList list(const char* version) {
        return std::vector<Release>{{version, "News", "https://example.org", true}};
    }

    /// As if the program had been started again.
    void launch() {
        updater.reset();
        updater = std::make_unique<FeedUpdater>(
            UpdaterSurroundings{source, presenter, notifications, machine.defaults, machine.runLoop,
                                machine.clock, machine.strings, "1.0"});
    }

    /// Lets time pass until a check begins: how much.
    std::chrono::seconds untilCheck() {
        std::chrono::seconds passed{0};
        for (; !source.waiting && passed < 48h; passed += 10s) {
            machine.runLoop.advance(10s);
        }
        return passed;
    }

    FeedUpdaterTest() { launch(); }

    FakePlatform machine;
    FakeSource source;
    FakePresenter presenter;
    FakeUserNotifications notifications;
    std::unique_ptr<FeedUpdater> updater;
};

TEST_F(FeedUpdaterTest, AnswersTheUser) {
    struct Case {
        ReleaseList list;
        const char* title;
        const char* text;
        bool hasNews;
    };

    for (const Case& c :
         {Case{list("1.0"), "update_current_title", "update_current_text 1.0", false},
          Case{list("0.9"), "update_current_title", "update_current_text 1.0", false},
          Case{std::vector<Release>{}, "update_current_title", "update_current_text 1.0", false},
          Case{list("1.1"), "update_available_title 1.1", "update_available_text 1.0", true},
          Case{list("1.1"), "update_available_title 1.1", "update_available_text 1.0", true},
          Case{UpdateError::unreachable, "update_failed_title", "update_error_unreachable", false},
          Case{UpdateError::version, "update_failed_title", "update_error_version", false}}) {
        presenter.shown.clear();
        updater->checkForUpdates();
        source.answer(c.list);
        ASSERT_EQ(presenter.shown.size(), 1U) << c.title;
        EXPECT_EQ(presenter.shown[0].title, c.title);
        EXPECT_EQ(presenter.shown[0].text, c.text);
        EXPECT_EQ(presenter.shown[0].notes, c.hasNews ? "News" : "");
        EXPECT_EQ(presenter.shown[0].page, c.hasNews ? "https://example.org" : "");
        EXPECT_FALSE(presenter.shown[0].isRunning);
    }
    EXPECT_TRUE(notifications.added.empty());
    EXPECT_TRUE(machine.runLoop.timers().empty());
}

TEST_F(FeedUpdaterTest, RunsOneCheckAtATimeWhichTheUserCanEnd) {
    std::string can;
    const Subscription follows =
        updater->observeCanCheckForUpdates([&](bool value) { can += value ? "1" : "0"; });
    updater->checkForUpdates();
    updater->checkForUpdates();
    EXPECT_EQ(source.fetches, 1);
    presenter.closed.emit(); // The answer of an earlier check.
    EXPECT_TRUE(presenter.shown.empty()) << "no flicker";
    machine.runLoop.advance(1s);
    ASSERT_EQ(presenter.shown.size(), 1U);
    EXPECT_TRUE(presenter.shown[0].isRunning);
    EXPECT_EQ(can, "10");
    presenter.closed.emit();
    EXPECT_EQ(can, "101");
    EXPECT_FALSE(source.waiting);
    machine.runLoop.advance(60s);
    EXPECT_EQ(presenter.shown.size(), 1U);

    updater->checkForUpdates();
    machine.runLoop.advance(29s);
    EXPECT_EQ(can, "1010");
    machine.runLoop.advance(2s);
    EXPECT_EQ(presenter.shown.back().text, "update_error_timeout");
    EXPECT_EQ(can, "10101");
    EXPECT_FALSE(source.waiting);
}

TEST_F(FeedUpdaterTest, IsSilentUntilItIsSwitchedOn) {
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    machine.runLoop.advance(48h);
    EXPECT_EQ(source.fetches, 0);
    updater->setAutomaticallyChecksForUpdates(true);
    machine.runLoop.advance(2min);
    EXPECT_EQ(source.fetches, 1);
    updater->setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(source.waiting);
    machine.runLoop.advance(48h);
    EXPECT_EQ(source.fetches, 1);
}

TEST_F(FeedUpdaterTest, ChecksOnceADayAcrossLaunches) {
    updater->setAutomaticallyChecksForUpdates(true);
    launch();
    EXPECT_TRUE(updater->automaticallyChecksForUpdates());
    EXPECT_EQ(untilCheck(), 60s) << "nothing in the first minute";
    source.answer(list("1.0"));
    machine.runLoop.advance(12h);
    launch();
    EXPECT_EQ(untilCheck(), 12h);
    source.answer(UpdateError::unreachable);
    EXPECT_EQ(untilCheck(), 1h) << "tried again";
    machine.runLoop.advance(30s);
    EXPECT_FALSE(source.waiting) << "nobody answered";
    EXPECT_EQ(untilCheck(), 1h);
    source.answer(list("1.0"));
    machine.runLoop.advance(23h);
    updater->checkForUpdates();
    source.answer(list("1.0"));
    EXPECT_EQ(untilCheck(), 24h) << "after the user's";
    source.answer(list("1.0"));
    machine.clock.wall -= 24h * 365;
    EXPECT_LE(untilCheck(), 1h) << "the clock was put right";
    EXPECT_EQ(presenter.shown.size(), 1U);
    EXPECT_TRUE(notifications.added.empty());
}

TEST_F(FeedUpdaterTest, TellsOfEachVersionOnce) {
    updater->setAutomaticallyChecksForUpdates(true);
    const auto nextDay = [&](const char* version) {
        untilCheck();
        source.answer(list(version));
        return notifications.added.size();
    };
    ASSERT_EQ(nextDay("1.1"), 1U);
    EXPECT_EQ(notifications.added[0].title, "update_available_title 1.1");
    launch();
    EXPECT_EQ(nextDay("1.1"), 1U);
    EXPECT_EQ(nextDay("1.2"), 2U);
    updater->checkForUpdates();
    source.answer(list("1.3"));
    EXPECT_EQ(nextDay("1.3"), 2U) << "the user has seen it";
    EXPECT_EQ(presenter.shown.size(), 1U);
}

TEST_F(FeedUpdaterTest, TheUserComesBeforeTheSchedule) {
    updater->setAutomaticallyChecksForUpdates(true);
    machine.runLoop.advance(61s);
    ASSERT_TRUE(source.waiting);
    EXPECT_TRUE(updater->canCheckForUpdates());
    updater->checkForUpdates();
    EXPECT_EQ(source.fetches, 2);
    source.answer(list("1.1"));
    EXPECT_EQ(presenter.shown.size(), 1U);
    EXPECT_TRUE(notifications.added.empty());
    updater->checkForUpdates();
    updater.reset();
    EXPECT_FALSE(source.waiting) << "nobody waits any more";
}

} // namespace
} // namespace calmora
