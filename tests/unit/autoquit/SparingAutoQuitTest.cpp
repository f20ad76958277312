// SPDX-License-Identifier: MIT
#include "autoquit/SparingAutoQuit.h"

#include "autoquit/Forecast.h"
#include "autoquit/UseRules.h"
#include "fakes/FakeAutoQuit.h"

namespace calmora {
namespace {

using namespace std::chrono_literals;
using Pids = std::vector<ProcessId>;
using Texts = std::set<std::string>;

/// Auto-quit after 15 minutes that spares what is in use, on a desktop where "front" is in front.
struct Desk : FakeAutoQuit {
    Desk() {
        settings.autoQuitEnabled.set(true);
        settings.autoQuitMinutes.set(15);
        extras.sparesWhatIsInUse.set(true);
        machine.strings.texts["auto_quit_warning %@ %lld"] = "%@ %lld";
        launch(90, "front");
        manager.activityTracker().startTracking();
        manager.start();
    }

    void launch(ProcessId process, const std::string& name, bool obeys = true) {
        FakeApplication app{.pid = process, .name = name, .bundleIdentifier = name};
        app.endsAfterTerminate = obeys ? std::optional(0ms) : std::nullopt;
        machine.workspace.launch(std::move(app));
    }

    void activate(ProcessId process) {
        machine.workspace.activate(process);
        machine.runLoop.turn();
    }

    /// Brings an application to the front for a moment.
    void use(ProcessId process) {
        activate(process);
        activate(90);
    }

    /// Lets time pass with sources and a notification server that answer at once.
    void pass(std::chrono::seconds time) {
        for (; time > 0s; time -= 10s) {
            machine.runLoop.advance(10s);
            uses.answer();
            notifications.settle(outcome);
            machine.runLoop.turn();
        }
    }

    /// The texts of the notices on screen.
    [[nodiscard]] Texts notices() const {
        Texts texts;
        for (const auto& [text, handler] : notifications.shown) {
            texts.insert(text);
        }
        return texts;
    }

    [[nodiscard]] const Pids& asked() const { return machine.workspace.terminateRequests; }

    NoticeEvent outcome = NoticeEvent::shown;
};

TEST(UseRules, AKnownUseOfAnyProcessSparesAndAnUnansweredQuestionToo) {
    using Uses = std::vector<ProcessUse>;
    using Reason = std::optional<SpareReason>;
    const ProcessId tree[] = {4, 5};
    for (const auto& [uses, isFront, sinceInput, isComplete, wanted] :
         {std::tuple(Uses{}, false, 0min, true, Reason()),
          {Uses{{3, UseKind::playsSound}, {6, UseKind::isFullScreen}}, false, 0min, true, Reason()},
          {Uses{{5, UseKind::isFullScreen}}, false, 0min, true, SpareReason::isFullScreen},
          {Uses{{5, UseKind::inhibitsSleep}, {4, UseKind::recordsSound}}, false, 0min, false,
           SpareReason::recordsSound},
          {Uses{}, false, 0min, false, SpareReason::useIsUnknown},
          {Uses{}, true, 14min, true, SpareReason::isInFront},
          {Uses{}, true, 15min, true, Reason()},
          {Uses{{5, UseKind::playsMedia}}, true, 20min, true, SpareReason::playsMedia}}) {
        EXPECT_EQ(useOf(tree, isFront, {uses, isComplete, sinceInput}, 15min), wanted);
    }
    EXPECT_EQ(useOf(tree, true, UseReport{}, 15min), SpareReason::isInFront) << "nobody tells";
}

TEST(SparingAutoQuit, QuitsAMinuteAfterTheNoticeUnlessSomethingSpares) {
    struct Row {
        const char* what;
        std::function<void(Desk&)> happens;
        bool isQuit;
        /// Whether the notice stays on screen until its time is over.
        bool staysWarned;
    };

    const Row rows[] = {
        {"nothing", [](Desk&) {}, true, true},
        {"Keep", [](Desk& d) { d.notifications.shown.begin()->second(NoticeEvent::actionChosen); },
         false, false},
        {"activation", [](Desk& d) { d.use(1); }, false, false},
        {"switched off",
         [](Desk& d) {
             d.extras.sparesWhatIsInUse.set(false);
             d.settings.autoQuitMinutes.set(480);
         },
         false, false},
        {"auto-quit off", [](Desk& d) { d.settings.autoQuitEnabled.set(false); }, false, false},
        {"protected", [](Desk& d) { d.settings.addToNeverQuit("app"); }, false, false},
        {"more time", [](Desk& d) { d.settings.autoQuitMinutes.set(30); }, false, false},
        {"ended", [](Desk& d) { d.machine.processes.end(1); }, false, false},
        {"sound of a descendant",
         [](Desk& d) {
             d.machine.processes.start(7, {.parent = 1});
             d.machine.processes.start(8, {.parent = 7});
             d.uses.report.uses = {{8, UseKind::playsSound}};
         },
         false, true},
        {"unknown", [](Desk& d) { d.uses.report.isComplete = false; }, false, true},
        {"locked", [](Desk& d) { d.away.away += 5s; }, false, true}};
    for (const auto& [what, happens, isQuit, staysWarned] : rows) {
        Desk desk;
        desk.launch(1, "app");
        desk.use(1);
        desk.pass(14min);
        EXPECT_EQ(desk.notices(), Texts{}) << what;
        EXPECT_EQ(desk.uses.reads, 0) << "nobody is asked before an application is idle";
        desk.pass(1min);
        EXPECT_EQ(desk.notices(), Texts{"app 15"}) << what;
        happens(desk);
        desk.machine.runLoop.turn();
        EXPECT_EQ(desk.notices(), staysWarned ? Texts{"app 15"} : Texts{}) << what;
        desk.pass(50s);
        EXPECT_EQ(desk.asked(), Pids{}) << what << ": a full minute";
        EXPECT_EQ(desk.notices().size(), staysWarned ? 1U : 0U) << what;
        desk.pass(20s);
        EXPECT_EQ(desk.asked(), isQuit ? Pids{1} : Pids{}) << what;
        EXPECT_EQ(desk.notices(), Texts{}) << what;
    }
}

TEST(SparingAutoQuit, WithdrawsTheNoticeWhenTheApplicationLeavesTheFront) {
    Desk desk;
    desk.settings.addToNeverQuit("front");
    desk.uses.report.sinceInput = 20min;
    desk.launch(1, "app");
    desk.activate(1);
    desk.pass(15min);
    EXPECT_EQ(desk.notices(), Texts{"app 15"});
    desk.activate(90);
    EXPECT_EQ(desk.notices(), Texts{});
}

TEST(SparingAutoQuit, WithoutAServerItQuitsAndWithAStuckOneItDoesNot) {
    for (const auto& [outcome, isQuit] :
         {std::pair{NoticeEvent::noServer, true}, {NoticeEvent::failed, false}}) {
        Desk desk;
        desk.outcome = outcome;
        desk.launch(1, "app");
        desk.use(1);
        desk.pass(15min);
        EXPECT_EQ(desk.asked(), Pids{});
        desk.pass(5min);
        EXPECT_EQ(desk.asked(), isQuit ? Pids{1} : Pids{});
        EXPECT_EQ(desk.manager.sparing().lastSpared("app") == SpareReason::noticeFailed, !isQuit);
    }
}

TEST(SparingAutoQuit, GivesAMinutesNoticeWhateverTheMinutes) {
    for (const std::int64_t minutes : {1, 0, -5}) {
        Desk desk;
        desk.settings.autoQuitMinutes.set(minutes);
        desk.uses.report.sinceInput = 0s;
        desk.launch(1, "app");
        desk.pass(30s);
        desk.use(1);
        desk.pass(30s);
        EXPECT_EQ(desk.notices(), Texts{"app 1"}) << minutes;
        desk.pass(50s);
        EXPECT_EQ(desk.asked(), Pids{}) << minutes;
        desk.pass(10s);
        EXPECT_EQ(desk.asked(), Pids{1}) << minutes;
    }
}

TEST(SparingAutoQuit, ManyAtOnceAreWarnedOfAFewAtATime) {
    Desk desk;
    Pids all;
    for (const ProcessId process : {1, 2, 3, 4, 5, 6, 7, 8}) {
        desk.launch(process, "app " + std::to_string(process));
        desk.use(process);
        all.push_back(process);
    }
    Texts before;
    for (int minute = 0; minute < 30; ++minute) {
        desk.pass(1min);
        EXPECT_LE(desk.notices().size(), 3U);
        for (const ProcessId process : desk.asked()) {
            EXPECT_TRUE(before.contains("app " + std::to_string(process) + " 15"));
        }
        before.merge(desk.notices());
    }
    EXPECT_EQ(desk.asked(), all);
    EXPECT_EQ(desk.notifications.shows, 8);
    EXPECT_EQ(desk.notifications.added.size(), 8U) << "each is told of when it is gone";
}

TEST(SparingAutoQuit, OneThatStaysIsAskedOnceUntilItIsUsed) {
    Desk desk;
    desk.launch(1, "app", /*obeys=*/false);
    desk.use(1);
    desk.pass(30min);
    EXPECT_EQ(desk.asked(), Pids{1});
    EXPECT_EQ(desk.notifications.shows, 1);
    EXPECT_EQ(desk.machine.clock.slept, 0s) << "the program goes on";
    EXPECT_TRUE(desk.notifications.added.empty()) << "it is not gone";
    desk.use(1);
    desk.pass(30min);
    EXPECT_EQ(desk.asked(), (Pids{1, 1}));
}

TEST(SparingAutoQuit, CountsFromTheLastUseAndNotWhileNobodyIsThere) {
    struct Row {
        const char* what;
        std::function<void(Desk&)> happens;
        std::chrono::minutes quitAfter;
    };

    const Row rows[] = {{"long in front",
                         [](Desk& d) {
                             d.activate(1);
                             d.pass(70min);
                             d.activate(90);
                         },
                         16min},
                        {"sound",
                         [](Desk& d) {
                             d.uses.report.uses = {{1, UseKind::playsSound}};
                             d.pass(29min);
                             d.uses.report.uses.clear();
                         },
                         16min},
                        {"a night locked",
                         [](Desk& d) {
                             d.pass(5min);
                             d.machine.clock.wall += 8h;
                             d.away.away += 8h;
                         },
                         11min}};
    for (const auto& [what, happens, quitAfter] : rows) {
        Desk desk;
        desk.settings.addToNeverQuit("front");
        desk.launch(1, "app");
        desk.use(1);
        happens(desk);
        desk.pass(quitAfter - 20s);
        EXPECT_EQ(desk.asked(), Pids{}) << what;
        desk.pass(2min);
        EXPECT_EQ(desk.asked(), Pids{1}) << what;
    }
}

TEST(SparingAutoQuit, SparesCatalogueApplicationsWithBusyChildren) {
    const std::string cautious = "com.jetbrains.fleet";
    for (const auto& [childUses, isQuit] : {std::pair{1s, true}, {2s, false}}) {
        Desk desk;
        desk.launch(1, cautious);
        desk.use(1);
        for (int minute = 0; minute < 20; ++minute) {
            desk.machine.processes.start(
                2, {.parent = 1,
                    .counters = ProcessCounters{
                        .userTime = static_cast<std::uint64_t>(minute * childUses / 1ns)}});
            desk.pass(1min);
        }
        EXPECT_EQ(desk.asked(), isQuit ? Pids{1} : Pids{});
    }
}

TEST(Forecast, SaysWhatAutoQuitWillDoAndWhy) {
    using Wanted = std::pair<std::optional<SpareReason>, std::optional<std::chrono::minutes>>;
    Desk desk;
    desk.machine.workspace.installed = {
        {"term",
         {.displayName = {}, .icon = {}, .location = {}, .categories = {"TerminalEmulator"}}},
        {"relied", {.displayName = {}, .icon = {}, .location = {}, .categories = {"Calendar"}}}};
    desk.settings.addToNeverQuit("listed");
    ProcessId process = 0;
    for (const char* name : {"term", "relied", "listed", "com.spotify.client", "com.apple.finder",
                             "unused", "plain", "loud", "stays"}) {
        desk.launch(++process, name, /*obeys=*/false);
    }
    desk.machine.workspace.at(9).bundleIdentifier = "stays";
    desk.use(9);
    desk.pass(17min);
    desk.use(7);
    desk.use(8);
    desk.pass(3min);
    desk.uses.report = {{{8, UseKind::playsSound}}, true, 1min};
    const int reads = desk.uses.reads;

    Forecast forecast(desk.settings, desk.machine.platform(), desk.manager.sparing(), desk.uses);
    std::map<std::string, Wanted> told;
    const auto read = [&] {
        return forecast.read([&](const std::vector<Prospect>& all) {
            told.clear();
            for (const Prospect& one : all) {
                told[*one.application.bundleIdentifier] = {one.reason, one.left};
            }
        });
    };
    std::map<std::string, Wanted> wanted{{"term", {SpareReason::isTerminal, {}}},
                                         {"relied", {SpareReason::isReliedOn, {}}},
                                         {"listed", {SpareReason::isOnNeverQuitList, {}}},
                                         {"com.spotify.client", {SpareReason::isMusicPlayer, {}}},
                                         {"com.apple.finder", {SpareReason::isFileManager, {}}},
                                         {"unused", {SpareReason::wasNotInFrontYet, {}}},
                                         {"plain", {{}, 12min}},
                                         {"loud", {SpareReason::playsSound, {}}},
                                         {"stays", {SpareReason::wasAsked, {}}},
                                         {"front", {SpareReason::isInFront, {}}}};
    Subscription first = read();
    desk.uses.answer();
    EXPECT_EQ(told, wanted);
    EXPECT_EQ(desk.uses.reads, reads + 1);

    desk.extras.sparesWhatIsInUse.set(false);
    wanted["loud"] = {{}, 12min};
    wanted["stays"] = {{}, 1min};
    wanted["front"] = {{}, 12min};
    first = read();
    desk.machine.runLoop.turn();
    EXPECT_EQ(told, wanted) << "by activations alone";
    EXPECT_EQ(desk.uses.reads, reads + 1) << "nobody is asked";
    EXPECT_FALSE(desk.away.isFollowing);
}

} // namespace
} // namespace calmora
