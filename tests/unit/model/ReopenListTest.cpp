// SPDX-License-Identifier: MIT
#include "model/ReopenList.h"

#include "fakes/FakeLauncher.h"
#include "fakes/FakePlatform.h"

namespace calmora {
namespace {

using Names = std::vector<std::string>;
using testing::ElementsAre;
using testing::IsEmpty;

/// An application that was listed as process `pid`.
AppInfo app(ProcessId pid, std::optional<std::string> desktopId, std::uint64_t startTime = 0) {
    return {.pid = pid,
            .name = desktopId.value_or("x"),
            .desktopId = std::move(desktopId),
            .startTime = startTime};
}

TEST(ReopenList, KeepsWhatTheLastQuitEndedAndStartsEachOnceThatDoesNotRun) {
    const struct {
        const char* name;
        std::vector<AppInfo> ended;
        /// Desktop ids of what runs when the quit is over, and when it is undone.
        Names runsAfterQuit, runsLater;
        Names kept, started;
    } cases[] = {
        {"in the order of starting",
         {app(3, "c", 3), app(9, "a", 1)},
         {},
         {},
         {"a", "c"},
         {"a", "c"}},
        {"instances are one", {app(2, "a", 1), app(3, "a", 2)}, {}, {}, {"a"}, {"a"}},
        {"no desktop file", {app(2, {}), app(3, "missing"), app(4, "a")}, {}, {}, {"a"}, {"a"}},
        {"nothing to start leaves the last quit", {app(2, {})}, {}, {}, {"before"}, {"before"}},
        {"another instance stayed", {app(2, "a"), app(3, "b")}, {"a"}, {}, {"b"}, {"b"}},
        {"came back meanwhile", {app(2, "a"), app(3, "b")}, {}, {"a"}, {"a", "b"}, {"b"}},
    };

    for (const auto& c : cases) {
        FakePlatform machine;
        FakeLauncher launcher;
        launcher.unavailable = {"missing"};
        ReopenList list(machine.workspace, launcher);
        int changes = 0;
        const auto observing = list.onChanged([&] { ++changes; });
        list.remember({app(1, "before")});
        ProcessId pid = 100;
        for (const std::string& id : c.runsAfterQuit) {
            machine.workspace.launch({.pid = ++pid, .desktopId = id});
        }
        list.remember(c.ended);
        for (const std::string& id : c.runsLater) {
            machine.workspace.launch({.pid = ++pid, .desktopId = id});
        }
        EXPECT_EQ(list.names(), c.kept) << c.name;
        list.reopen();
        EXPECT_TRUE(list.isEmpty()) << c.name;
        list.reopen();
        EXPECT_EQ(launcher.launched, c.started) << c.name;
        EXPECT_EQ(changes, c.kept == Names{"before"} ? 2 : 3) << c.name;
    }
}

TEST(ReopenList, RestartsOnlyWhatIsGoneAndStaysAway) {
    FakePlatform machine;
    FakeLauncher launcher;
    launcher.unavailable = {"missing"};
    ReopenList list(machine.workspace, launcher);
    machine.workspace.launch({.pid = 1, .desktopId = "a"});
    machine.workspace.launch({.pid = 2, .desktopId = "a"});
    const auto quit = [&](const AppInfo& wanted, std::vector<AppInfo> gone) {
        list.prepareRestart(wanted);
        const auto running = list.restartPrepared(gone);
        list.remember(std::move(gone));
        return running;
    };
    EXPECT_THAT(quit(app(5, "missing"), {app(5, "missing")}), IsEmpty());
    EXPECT_THAT(quit(app(1, "a"), {app(4, "b")}), IsEmpty()) << "it stayed";
    EXPECT_EQ(list.names(), Names{"b"});
    EXPECT_THAT(list.restartPrepared({app(1, "a")}), IsEmpty()) << "it ended much later";
    EXPECT_THAT(launcher.launched, IsEmpty());

    EXPECT_THAT(quit(app(1, "a"), {app(1, "a")}), ElementsAre(1)) << "others of it run as before";
    EXPECT_EQ(launcher.launched, Names{"a"});
    EXPECT_EQ(list.names(), Names{"b"}) << "what runs again needs no reopening";

    list.prepareRestart(app(2, "a"));
    machine.workspace.launch({.pid = 3, .desktopId = "a"});
    EXPECT_THAT(list.restartPrepared({app(2, "a")}), ElementsAre(2));
    EXPECT_EQ(launcher.launched, Names{"a"}) << "it came back by itself";
}

} // namespace
} // namespace calmora
