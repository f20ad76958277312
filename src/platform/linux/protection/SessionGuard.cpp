// SPDX-License-Identifier: MIT
#include "platform/linux/protection/SessionGuard.h"

#include "platform/ProcessId.h"
#include "platform/linux/xdg/TextFile.h"
#include "support/TextHelpers.h"

#include <cstdlib>
#include <string>
#include <utility>

#include <unistd.h>

namespace calmora {
namespace {

constexpr std::chrono::milliseconds factsLifetime{250};

void fill(std::set<ProcessId>& processes, const std::function<std::vector<ProcessId>()>& source) {
    if (source) {
        const std::vector<ProcessId> found = source();
        processes.insert(found.begin(), found.end());
    }
}

} // namespace

SessionGuard::SessionGuard(const ProcessReader& reader, const Clock& clock, Sources sources)
    : reader_(reader), clock_(clock), sources_(std::move(sources)), peers_(reader) {}

std::optional<ProtectionReason> SessionGuard::reason(ProcessId process) {
    const auto now = clock_.ticks();
    if (!gathered_ || now - *gathered_ > factsLifetime) {
        session_ = gather();
        gathered_ = now;
    }
    session_.busOwners.clear();
    fill(session_.busOwners, sources_.busOwners);
    if (const auto known = protectionById(process, session_)) {
        return known;
    }
    const auto stat = reader_.stat(process);
    const auto status = reader_.status(process);
    if (!stat || !status) {
        return ProtectionReason::unreadable;
    }
    const auto executable = reader_.executable(process);
    ProtectionCandidate candidate{
        .process = process,
        .user = status->realUser,
        .isKernelThread = stat->isKernelThread,
        .controlGroup = reader_.controlGroup(process),
        .name = stat->comm,
        .executable = std::string(baseName(executable ? *executable : std::string_view())),
        .isAutostarted = false,
        .hasRegularWindow = false};
    candidate.isAutostarted =
        sources_.isAutostarted && sources_.isAutostarted(reader_.commandLine(process), executable);
    candidate.hasRegularWindow =
        candidate.isAutostarted && sources_.hasRegularWindow && sources_.hasRegularWindow(process);
    return protection(candidate, session_);
}

SessionFacts SessionGuard::gather() {
    SessionFacts facts;
    facts.self = getpid();
    facts.user = getuid();
    facts.controlGroup = reader_.controlGroup(facts.self);
    const auto parentOf = [this](ProcessId process) { return reader_.parent(process); };
    static_cast<void>(anyAncestor(facts.self, parentOf, [&](ProcessId ancestor) {
        facts.ancestors.insert(ancestor);
        return false;
    }));
    fill(facts.display, sources_.display);

    for (const std::string& path : sessionManagerSockets(variable("SESSION_MANAGER"))) {
        addListener(facts.session, path);
    }
    const std::string session = variable("XDG_SESSION_ID");
    if (!session.empty() && session.find('/') == std::string::npos) {
        const auto text = readTextFile(sources_.loginSessions / session);
        if (const auto leader = sessionLeader(text.value_or(""))) {
            facts.session.insert(*leader);
        }
    }

    std::string runtime = variable("XDG_RUNTIME_DIR");
    if (runtime.empty()) {
        runtime = "/run/user/" + std::to_string(facts.user);
    }
    const std::string pipewireRuntime = variable("PIPEWIRE_RUNTIME_DIR");
    const std::string pipewireName = variable("PIPEWIRE_REMOTE");
    addListener(facts.audioServers, (pipewireRuntime.empty() ? runtime : pipewireRuntime) + '/' +
                                        (pipewireName.empty() ? "pipewire-0" : pipewireName));
    addListener(facts.audioServers, runtime + "/pulse/native");
    addListener(facts.audioServers, pulseServerSocket(variable("PULSE_SERVER")));
    return facts;
}

std::string SessionGuard::variable(const char* name) const {
    const char* value = sources_.environment ? sources_.environment(name) : std::getenv(name);
    return value ? value : "";
}

void SessionGuard::addListener(std::set<ProcessId>& processes, const std::string& path) {
    if (const auto process = peers_.listener(path)) {
        processes.insert(*process);
    }
}

} // namespace calmora
