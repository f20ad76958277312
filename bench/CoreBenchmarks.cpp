// SPDX-License-Identifier: MIT
#include "Children.h"
#include "Compare.h"
#include "WorkspaceBenchmarks.h"

#include "autoquit/catalogue/KnownAppTable.h"
#include "autoquit/catalogue/KnownApps.h"
#include "fakes/FakePlatform.h"
#include "model/ResourceMonitor.h"
#include "platform/linux/IcuText.h"
#include "platform/linux/proc/LinuxClock.h"
#include "platform/linux/proc/LinuxProcessTable.h"
#include "platform/linux/proc/PidFd.h"
#include "platform/linux/protection/SessionGuard.h"
#include "settings/AppSettings.h"
#include "support/FileDescriptor.h"
#include "ui/AppListViewModel.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <string>
#include <unordered_map>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace calmora {
namespace {

/// The fake machine, with the real table of processes, the real clock and real texts.
struct Machine {
    FakePlatform fakes;
    ProcessReader reader;
    ProcessMemory memory{reader};
    LinuxClock clock;
    SessionGuard guard{reader, clock, {}};
    LinuxProcessTable processes{reader, memory, guard};
    IcuText text{"en_US.UTF-8"};
    AppSettings settings{fakes.defaults};

    [[nodiscard]] Platform platform() {
        return {fakes.workspace, processes,    clock,       fakes.runLoop, fakes.bundle, text,
                fakes.strings,   fakes.sounds, fakes.alerts};
    }

    /// Lists a process as an application, named so that most names differ early.
    void list(ProcessId process, ActivationPolicy policy) {
        static constexpr std::array words{"Writer",  "Mail",   "Terminal", "Browser",
                                          "Drawing", "Player", "Files",    "Notes"};
        const auto number = static_cast<std::size_t>(process);
        FakeApplication app;
        app.pid = process;
        app.name = std::string(words.at(number * 7 % words.size())) + " " + std::to_string(number);
        app.bundleIdentifier = std::string(knownAppTable.at(number % 100).bundleIdentifier) +
                               (number % 3 == 0 ? "" : std::to_string(number));
        app.icon = Image{.themeName = *app.bundleIdentifier, .file = {}, .pixels = nullptr};
        app.policy = policy;
        fakes.workspace.launch(app);
    }
};

/// What sampling cannot do without: the CPU clock and one read of an open file, per process.
class BareSampling {
  public:
    explicit BareSampling(std::span<const ProcessId> processes) {
        for (const ProcessId process : processes) {
            const std::string path = "/proc/" + std::to_string(process) + "/statm";
            entries_.emplace_back(
                static_cast<clockid_t>(~static_cast<unsigned>(process) << 3U | 2U),
                FileDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC)));
        }
    }

    void sample() {
        for (const auto& [clock, file] : entries_) {
            timespec time{};
            std::array<char, 256> text;
            if (clock_gettime(clock, &time) != 0 ||
                pread(file.get(), text.data(), text.size(), 0) <= 0) {
                std::abort();
            }
            benchmark::DoNotOptimize(time);
            benchmark::DoNotOptimize(text);
        }
    }

  private:
    std::vector<std::pair<clockid_t, FileDescriptor>> entries_;
};

/// Allows this program so many open files, at most what the system gives.
void setOpenFileLimit(rlim_t files) {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = std::min(files, limit.rlim_max);
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}

/// Under the usual soft limit of open files, which the program raises when it starts; or as where
/// the system does not let it. The table of processes bounds its files by what it finds.
void sampling(benchmark::State& state, bool raisesLimit) {
    const Children children(static_cast<std::size_t>(state.range(0)));
    setOpenFileLimit(1024);
    if (raisesLimit) {
        raiseOpenFileLimit();
    }
    Machine machine;
    setOpenFileLimit(RLIM_INFINITY);
    ResourceMonitor monitor(machine.platform());
    BareSampling bare(children.processes());
    compare(
        state,
        [&] {
            if (monitor.getUsage(children.processes()).size() != children.processes().size()) {
                state.SkipWithError("a process could not be sampled");
            }
        },
        [&] { bare.sample(); });
}

void refresh(benchmark::State& state) {
    const Children children(static_cast<std::size_t>(state.range(0)));
    Machine machine;
    const auto all = children.processes();
    for (std::size_t i = 0; i < all.size(); ++i) {
        // 50 applications; every hundredth process of the rest has an icon in the tray.
        if (i < 50 || i % 100 == 99) {
            machine.list(all[i], i < 50 ? ActivationPolicy::regular : ActivationPolicy::accessory);
        }
    }
    AppListViewModel model(machine.settings, machine.platform());
    compare(
        state, [&] { model.refresh(); },
        [&] {
            benchmark::DoNotOptimize(machine.fakes.workspace.runningApplications());
            benchmark::DoNotOptimize(machine.fakes.workspace.runningApplications());
        });
}

/// The list of the model, and the bare cost of handing it out: one copy.
void filterAndSort(benchmark::State& state, SortOrder order, const char* search) {
    Machine machine;
    for (ProcessId process = 1; process <= state.range(0); ++process) {
        machine.list(process, ActivationPolicy::regular);
    }
    AppListViewModel model(machine.settings, machine.platform());
    model.refresh();
    machine.settings.sortOrder.set(order);
    model.setSearchText(search);
    compare(
        state, [&] { benchmark::DoNotOptimize(model.filteredApps()); },
        [&] { benchmark::DoNotOptimize(std::vector(model.apps())); });
}

/// A thousand look-ups: listed, of a known vendor, unknown.
void catalogueLookup(benchmark::State& state) {
    std::vector<std::string> identifiers;
    std::unordered_map<std::string, KnownAppInfo> map;
    for (const KnownAppEntry& entry : knownAppTable) {
        const std::string identifier(entry.bundleIdentifier);
        map.emplace(identifier, *KnownApps::lookup(identifier));
        identifiers.push_back(identifier + (identifiers.size() % 2 == 0 ? "" : ".other"));
    }
    identifiers.resize(100);
    for (std::size_t i = 0; i < 900; ++i) {
        identifiers.push_back(identifiers[i]);
    }
    compare(
        state,
        [&] {
            for (const std::string& identifier : identifiers) {
                benchmark::DoNotOptimize(KnownApps::lookup(identifier));
            }
        },
        [&] {
            for (const std::string& identifier : identifiers) {
                const auto found = map.find(identifier);
                benchmark::DoNotOptimize(found != map.end() ? std::optional(found->second)
                                                            : std::nullopt);
            }
        });
}

} // namespace
} // namespace calmora

int main(int argc, char** argv) {
    using namespace calmora;
    const auto atEachSize = [](benchmark::internal::Benchmark* benchmark) {
        benchmark->Arg(50)->Arg(500)->Arg(2000)->UseManualTime()->Unit(benchmark::kMicrosecond);
    };
    atEachSize(benchmark::RegisterBenchmark("sampling", sampling, true));
    atEachSize(benchmark::RegisterBenchmark("sampling, 1024 files at most", sampling, false));
    atEachSize(benchmark::RegisterBenchmark("refresh over a fake workspace", refresh));
    atEachSize(benchmark::RegisterBenchmark("refresh over the real workspace",
                                            refreshOverTheRealWorkspace, std::chrono::seconds(16)));
    atEachSize(benchmark::RegisterBenchmark("refresh among young processes",
                                            refreshOverTheRealWorkspace, std::chrono::seconds(0)));
    atEachSize(
        benchmark::RegisterBenchmark("list by name", filterAndSort, SortOrder::alphabetical, ""));
    atEachSize(benchmark::RegisterBenchmark("list by CPU", filterAndSort, SortOrder::cpuUsage, ""));
    atEachSize(benchmark::RegisterBenchmark("list searched", filterAndSort, SortOrder::alphabetical,
                                            "ter"));
    benchmark::RegisterBenchmark("1000 look-ups in the catalogue", catalogueLookup)
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
