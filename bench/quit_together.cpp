// SPDX-License-Identifier: MIT
// Quits real X11 clients, of which some ask their user, with both engines.
//
// calmora_quit_bench [CLIENTS [ASKING]]
//
// Prints for each engine how many ended, how long that took, and the longest time for which the
// main loop did not run meanwhile. Needs Xvfb and openbox.
// clang-format off: the tests' header expects what tests precompile.
#include <gmock/gmock.h>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>
// clang-format on

#include "WorkspaceTest.h"
#include "model/QuitTogether.h"

#include <poll.h>

#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace calmora {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
using Steady = std::chrono::steady_clock;

/// A main loop in real time over the loop of the tests.
class Loop {
  public:
    explicit Loop(LinuxDesktop& machine) : machine_(machine) {}

    /// One turn, which waits 1 ms at most for something to happen.
    void turn() {
        pollfd events{machine_.events.descriptor(), POLLIN, 0};
        ::poll(&events, 1, 1);
        const auto begin = Steady::now();
        machine_.rest.clock.advance(begin - std::exchange(last_, begin));
        machine_.events.dispatch();
        machine_.rest.runLoop.turn();
        longest = std::max(longest, Milliseconds(Steady::now() - begin));
    }

    Milliseconds longest{0};

  private:
    LinuxDesktop& machine_;
    Steady::time_point last_ = Steady::now();
};

std::vector<AppInfo> launch(LinuxDesktop& machine, int clients, int asking) {
    for (int i = 0; i < clients; ++i) {
        std::vector<std::string> options{"--class", "Client" + std::to_string(i)};
        if (i % (clients / std::max(asking, 1)) == 0 && i / (clients / asking) < asking) {
            options.emplace_back("--ask-on-close");
        }
        machine.client(options);
    }
    std::vector<AppInfo> apps;
    const bool areShown = waitFor([&] {
        apps.clear();
        for (const WorkspaceApplication& app : machine.workspace.runningApplications()) {
            apps.push_back(
                {.pid = app.processIdentifier, .bundleIdentifier = app.bundleIdentifier});
        }
        return std::ssize(apps) == clients;
    });
    if (!areShown) {
        std::fprintf(stderr, "%zu of %d clients are listed\n", apps.size(), clients);
    }
    return apps;
}

void print(const char* engine, std::size_t ended, Milliseconds time, Milliseconds longest) {
    std::printf("%-9s %3zu ended, %7.0f ms, longest turn of the loop %7.1f ms\n", engine, ended,
                time.count(), longest.count());
}

void run(int clients, int asking) {
    {
        LinuxDesktop machine;
        const auto apps = launch(machine, clients, asking);
        const auto begin = Steady::now();
        const std::size_t ended = machine.quitter.quitApps(apps, false).size();
        const Milliseconds time(Steady::now() - begin);
        print("blocking", ended, time, time);
    }
    LinuxDesktop machine;
    const auto apps = launch(machine, clients, asking);
    FakePlatform& rest = machine.rest;
    QuitTogether together({machine.workspace, machine.table, machine.clock, rest.runLoop,
                           rest.bundle, rest.text, rest.strings, rest.sounds, rest.alerts});
    const auto refresh = [&](const auto&) {
        together.check();
        together.lookAgain(machine.workspace.runningApplications());
    };
    const Subscription launched = machine.workspace.onLaunched(refresh);
    const Subscription terminated = machine.workspace.onTerminated(refresh);
    Loop loop(machine);
    loop.turn();
    loop.longest = {};
    const auto begin = Steady::now();
    together.begin(apps, false);
    while (together.isUnderWay()) {
        loop.turn();
    }
    print("together", together.result()->ended, Steady::now() - begin, loop.longest);
}

} // namespace
} // namespace calmora

int main(int argc, char** argv) {
    testing::InitGoogleTest();
    calmora::run(argc > 1 ? std::atoi(argv[1]) : 30, argc > 2 ? std::atoi(argv[2]) : 10);
}
