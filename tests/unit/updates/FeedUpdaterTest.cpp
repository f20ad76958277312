#include "updates/FeedUpdater.h"

#include "fakes/FakeDesktop.h"
#include "fakes/FakePlatform.h"
#include "updates/UpdatePresenter.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;

/// A source answered by hand, and a presenter that records what it shows.
struct FakeWorld : ReleaseSource, UpdatePresenter {
    Subscription fetch(std::function<void(const ReleaseList&)> done) override {
        ++fetches;
        waiting = std::move(done);
        return Subscription([this] { waiting = nullptr; });
    }

    void show(const UpdateReport& report) override {
        shown += (report.isRunning ? "running " : "") + report.title + "|" + report.text + "|" +
                 report.notes + report.page + "\n";
    }

    Subscription onClosed(std::function<void()> handler) override {
        return closed.connect(std::move(handler));
    }

    std::function<void(const ReleaseList&)> waiting;
    int fetches = 0;
    std::string shown;
    Signal<> closed;
};

struct FeedUpdaterTest : testing::Test, FakeWorld {
    FeedUpdaterTest() { launch(); }

    /// Restarts the program.
    void launch() {
        updater.reset();
        updater = std::make_unique<FeedUpdater>(
            UpdaterSurroundings{*this, *this, notifications, machine.defaults, machine.runLoop,
                                machine.clock, machine.strings, "1.0"});
    }

    void answer(const ReleaseList& list) {
        const auto done = waiting;
        done(list);
    }

    void answer(const char* version) { answer(std::vector<Release>{{version, {}, {}, true}}); }

    /// The time until the next check begins.
    std::chrono::seconds untilCheck() {
        std::chrono::seconds passed{0};
        for (; !waiting && passed < 48h; passed += 10s) {
            machine.runLoop.advance(10s);
        }
        return passed;
    }

    FakePlatform machine;
    FakeUserNotifications notifications;
    std::unique_ptr<FeedUpdater> updater;
};

TEST_F(FeedUpdaterTest, ReportsToTheUser) {
    const std::vector<Release> current{{"1.0", {}, {}, true}, {"0.9", {}, {}, true}};
    const std::pair<ReleaseList, std::string> rows[] = {
        {current, "update_current_title|update_current_text 1.0|\n"},
        {std::vector<Release>{{"1.1", "News", " https://a", true}},
         "update_available_title 1.1|update_available_text 1.0|News https://a\n"},
        {UpdateError::version, "update_failed_title|update_error_version|\n"}};
    for (const auto& [list, report] : rows) {
        shown.clear();
        updater->checkForUpdates();
        answer(list);
        EXPECT_EQ(shown, report);
    }
    EXPECT_EQ(untilCheck(), 48h) << "none by itself";
    EXPECT_TRUE(notifications.added.empty());
}

TEST_F(FeedUpdaterTest, RunsOneCancellableCheckAtATime) {
    std::string can;
    const Subscription follows =
        updater->observeCanCheckForUpdates([&](bool value) { can += value ? "1" : "0"; });
    updater->checkForUpdates();
    updater->checkForUpdates();
    EXPECT_EQ(fetches, 1);
    closed.emit(); // The answer of an earlier check.
    EXPECT_EQ(shown, "") << "no flicker";
    machine.runLoop.advance(1s);
    closed.emit();
    EXPECT_FALSE(waiting);
    updater->checkForUpdates();
    machine.runLoop.advance(31s);
    EXPECT_TRUE(shown.ends_with("|update_error_timeout|\n"));
    EXPECT_EQ(can, "10101");
}

TEST_F(FeedUpdaterTest, ChecksOnceADayAcrossLaunches) {
    updater->setAutomaticallyChecksForUpdates(true);
    launch();
    EXPECT_EQ(untilCheck(), 60s) << "nothing in the first minute";
    answer("1.0");
    machine.runLoop.advance(12h);
    launch();
    EXPECT_EQ(untilCheck(), 12h);
    answer(UpdateError::unreachable);
    EXPECT_EQ(untilCheck(), 1h) << "tried again";
    answer("1.0");
    machine.clock.wall -= 24h * 365;
    EXPECT_LE(untilCheck(), 1h) << "after the clock was corrected";
    updater->setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(waiting);
    EXPECT_EQ(untilCheck(), 48h);
}

TEST_F(FeedUpdaterTest, AnnouncesEachVersionOnce) {
    updater->setAutomaticallyChecksForUpdates(true);
    const auto nextDay = [&](const char* version) {
        untilCheck();
        answer(version);
        return notifications.added.size();
    };
    ASSERT_EQ(nextDay("1.1"), 1U);
    EXPECT_EQ(notifications.added[0].title, "update_available_title 1.1");
    launch();
    EXPECT_EQ(nextDay("1.1"), 1U);
    EXPECT_EQ(nextDay("1.2"), 2U);
    updater->checkForUpdates();
    answer("1.3");
    EXPECT_EQ(nextDay("1.3"), 2U) << "the user has seen it";
}

} // namespace
} // namespace calmora
