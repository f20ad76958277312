// SPDX-License-Identifier: MIT
#include "updates/FeedUpdater.h"

#include "fakes/FakePlatform.h"
#include "updates/FeedAddress.h"
#include "updates/Release.h"
#include "updates/UpdatePresenter.h"

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

    void answer(const char* version) {
        std::exchange(waiting, {})(std::vector<Release>{{version, {}, {}, true}});
    }

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

    const std::pair<ReleaseList, std::string> rows[] = {
        {std::vector<Release>{{"1.0", {}, {}, true}, {"0.9", {}, {}, true}},
         "update_current_title|update_current_text 1.0|\n"},
        {std::vector<Release>{{"1.1", "News", " https://a", true}},
         "update_available_title 1.1|update_available_text 1.0|News https://a\n"}};
    for (const auto& [list, report] : rows) {
        shown.clear();
        updater->checkForUpdates();
        std::exchange(waiting, {})(list);
        EXPECT_EQ(shown, report);
    }
}

TEST_F(FeedUpdaterTest, ChecksOnceADayAcrossLaunches) {
    updater->setAutomaticallyChecksForUpdates(true);
    launch();
    EXPECT_EQ(untilCheck(), 60s) << "nothing in the first minute";
    answer("1.0");
    machine.runLoop.advance(12h);
    launch();
    EXPECT_EQ(untilCheck(), 12h);
    std::exchange(waiting, {})(UpdateError::unreachable);
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

TEST(UpdateRules, SortVersionsLikeAppStream) {
    // In the order of "appstreamcli vercmp".
    const char* ascending[] = {"0~",     "0",     "0.9~",  "0.9",   "0.9a", "0.9+", "0.9.0",
                               "0.9.10", "0.9.B", "0.9.b", "0.9^1", "0.10", "10",   "1:0.1"};
    for (std::size_t i = 0; i < std::size(ascending); ++i) {
        for (std::size_t j = 0; j < std::size(ascending); ++j) {
            EXPECT_TRUE(compareVersions(ascending[i], ascending[j]) == (i <=> j))
                << ascending[i] << " and " << ascending[j];
        }
    }
    EXPECT_TRUE(compareVersions("18446744073709551616", "9") > 0);
    for (const char* text : {"", "abc", "1.0\n", "1/2", "<1>", "1.0é", ":1", "a:1", "1:", "-1"}) {
        EXPECT_FALSE(isVersion(text)) << text;
    }
    const Release releases[] = {{"1.9", {}, {}}, {"1.10", {}, {}}, {"2.0", {}, {}, false}};
    EXPECT_EQ(newestRelease(releases)->version, "1.10") << "stable releases only";
}

TEST(UpdateRules, ReadListsOnlyFromSafeAddressesAndOpenOnlyWebPages) {
    for (const auto& [scheme, host] : {FeedAddress{"https", "a.org"},
                                       {"file", ""},
                                       {"http", "::1"},
                                       {"http", "localhost"},
                                       {"http", "127.255.3.4"}}) {
        EXPECT_TRUE(mayFetch({scheme, host}) && mayFollow({scheme, host}, {scheme, host})) << host;
        EXPECT_FALSE(mayFollow({scheme, host}, {scheme, "b.org"})) << host;
    }
    EXPECT_FALSE(mayFollow({"https", "localhost"}, {"http", "localhost"})) << "no step down";
    for (const auto& [scheme, host] : {FeedAddress{"https", ""},
                                       {"file", "server"},
                                       {"http", "a.org"},
                                       {"http", "127.1"},
                                       {"http", "127.0.0.256"},
                                       {"http", "127.0.0.1.a.org"},
                                       {"ftp", "localhost"}}) {
        EXPECT_FALSE(mayFetch({scheme, host})) << scheme << " " << host;
    }
    EXPECT_TRUE(isWebPage("https://a.org") && isWebPage("http://a.org:80/a?b=c#d"));
    for (const char* page : {"https://", "https:///etc", "https://a@b", "javascript:alert(1)",
                             "file:///etc/passwd", "a.org", "https://a b", "https://ä"}) {
        EXPECT_FALSE(isWebPage(page)) << page;
    }
}

} // namespace
} // namespace calmora
