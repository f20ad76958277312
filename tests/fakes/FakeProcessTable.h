// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessTable.h"
#include "support/Signal.h"

#include <cerrno>
#include <map>
#include <set>
#include <string>

namespace calmora {

/// One process of a fake table.
struct FakeProcess {
    std::optional<ProcessId> parent = 1;
    /// Absent means that it may not be read.
    std::optional<std::string> executable = "/usr/bin/program";
    std::optional<ProcessCounters> counters = ProcessCounters{};
    /// Signals that do not end it.
    std::set<std::int32_t> survives = {};
    /// May not be signalled.
    bool isRefused = false;
    /// Tells processes with the same id apart; set by the table.
    std::uint64_t serial = 0;
};

/// A table of processes in memory. A signal other than 0 ends a process at once.
class FakeProcessTable final : public ProcessTable {
  public:
    /// Starts a process, replacing one with the same id.
    void start(ProcessId process, FakeProcess description = {}) {
        description.serial = ++serial_;
        processes_.insert_or_assign(process, std::move(description));
    }

    /// Ends a process and emits `ended`.
    void end(ProcessId process) {
        if (processes_.erase(process) > 0) {
            ended.emit(process);
        }
    }

    /// A running process; throws if there is none.
    FakeProcess& at(ProcessId process) { return processes_.at(process); }

    /// The serial of the process with an id; 0 if there is none.
    std::uint64_t serial(ProcessId process) const { return seen(process).serial; }

    std::optional<ProcessId> parent(ProcessId process) const override {
        return seen(process).parent;
    }

    std::vector<ProcessId> allProcesses() const override {
        std::vector<ProcessId> all;
        for (const auto& [process, description] : processes_) {
            all.push_back(process);
        }
        return all;
    }

    std::optional<std::string> executablePath(ProcessId process) const override {
        return seen(process).executable;
    }

    bool hold(ProcessId process) override {
        onHold(process);
        held_[process] = serial(process);
        return serial(process) != 0;
    }

    std::uint64_t heldProcess(ProcessId process) const override {
        const auto holding = held_.find(process);
        return holding != held_.end() ? holding->second : 0;
    }

    std::optional<ProcessCounters> counters(ProcessId process) override {
        sampled.push_back(process);
        return seen(process).counters;
    }

    void retainCounters(const std::vector<ProcessId>&) override {}

    std::int32_t sendSignal(ProcessId process, std::int32_t signal) override {
        if (signal != 0) {
            signals.emplace_back(process, signal);
        } else {
            probed.insert(process);
        }
        const FakeProcess& found = seen(process);
        const auto holding = held_.find(process);
        const bool isAnother = holding != held_.end() && holding->second != found.serial;
        if (process < 1 || found.serial == 0 || isAnother || found.isRefused) {
            errno = found.isRefused && !isAnother ? EPERM : ESRCH;
            return -1;
        }
        if (signal != 0 && !found.survives.contains(signal)) {
            end(process);
        }
        return 0;
    }

    /// Every signal but 0 that was asked for, in order.
    std::vector<std::pair<ProcessId, std::int32_t>> signals;
    /// Every process id whose existence was tested.
    std::set<ProcessId> probed;
    /// Every process whose counters were asked for, in order.
    std::vector<ProcessId> sampled;
    /// Emitted for every process that ends.
    Signal<ProcessId> ended;
    /// Runs before a process is held, for events between a lookup and the hold.
    std::function<void(ProcessId)> onHold = [](ProcessId) {};

  private:
    const FakeProcess& seen(ProcessId process) const {
        static const FakeProcess none{.parent = {}, .executable = {}, .counters = {}};
        const auto found = processes_.find(process);
        return found != processes_.end() ? found->second : none;
    }

    std::map<ProcessId, FakeProcess> processes_;
    std::map<ProcessId, std::uint64_t> held_;
    std::uint64_t serial_ = 0;
};

} // namespace calmora
