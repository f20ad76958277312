// SPDX-License-Identifier: MIT
#include "autoquit/AutoQuitManager.h"

#include "fakes/FakePlatform.h"
#include "fakes/FakeUse.h"
#include "settings/AppSettings.h"
#include "settings/ExtraSettings.h"

#include <benchmark/benchmark.h>

#include <string>

namespace calmora {
namespace {

/// A desk with applications that were all looked at an hour ago.
struct Desk {
    explicit Desk(int applications) {
        for (int number = 1; number <= applications; ++number) {
            FakeApplication app;
            app.pid = number;
            app.name = "Application " + std::to_string(number);
            app.bundleIdentifier = "org.example.Application" + std::to_string(number);
            machine.workspace.launch(app);
            manager.activityTracker().recordActivation(*app.bundleIdentifier,
                                                       machine.clock.wall - std::chrono::hours(1));
        }
        settings.autoQuitEnabled.set(true);
    }

    FakePlatform machine;
    AppSettings settings{machine.defaults};
    FakeUserNotifications notifications;
    FakeInputGate input;
    ExtraSettings extras{machine.defaults};
    FakeUseSources uses;
    FakeAwayTime away;
    AutoQuitManager manager{
        {settings, extras, machine.platform(), notifications, input, uses, away}};
};

void passes(benchmark::State& state, Desk& desk) {
    for ([[maybe_unused]] auto round : state) {
        desk.manager.checkAndQuitInactiveApps();
    }
}

void switchedOff(benchmark::State& state) {
    Desk desk(static_cast<int>(state.range(0)));
    desk.settings.autoQuitEnabled.set(false);
    passes(state, desk);
}

void noneInactive(benchmark::State& state) {
    Desk desk(static_cast<int>(state.range(0)));
    desk.settings.autoQuitMinutes.set(480);
    passes(state, desk);
}

/// The same with the switch on that spares what is in use.
void noneInactiveSparing(benchmark::State& state) {
    Desk desk(static_cast<int>(state.range(0)));
    desk.extras.sparesWhatIsInUse.set(true);
    desk.settings.autoQuitMinutes.set(480);
    passes(state, desk);
}

void allInactiveAndProtected(benchmark::State& state) {
    Desk desk(static_cast<int>(state.range(0)));
    for (const auto& [identifier, date] : desk.manager.activityTracker().lastActiveTime()) {
        desk.settings.addToNeverQuit(identifier);
    }
    passes(state, desk);
}

/// What a pass cannot do without: one look at each date.
void floorOfAPass(benchmark::State& state) {
    Desk desk(static_cast<int>(state.range(0)));
    const ActivityTracker& tracker = desk.manager.activityTracker();
    for ([[maybe_unused]] auto round : state) {
        int old = 0;
        for (const auto& [identifier, date] : tracker.lastActiveTime()) {
            old += date < desk.machine.clock.wall ? 1 : 0;
        }
        benchmark::DoNotOptimize(old);
    }
}

BENCHMARK(switchedOff)->Arg(200);
BENCHMARK(floorOfAPass)->Arg(200);
BENCHMARK(noneInactive)->Arg(200);
BENCHMARK(noneInactiveSparing)->Arg(200);
BENCHMARK(allInactiveAndProtected)->Arg(200);

} // namespace
} // namespace calmora

BENCHMARK_MAIN();
