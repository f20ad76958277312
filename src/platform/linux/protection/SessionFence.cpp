#include "platform/linux/protection/SessionFence.h"

#include "platform/linux/proc/ProcFiles.h"
#include "support/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace calmora {
namespace {

constexpr std::chrono::milliseconds factsLifetime{250};
/// More ancestors than any process has.
constexpr int ancestorLimit = 64;

/// The first 4 KiB of a file.
std::string readAll(const FileDescriptor& file) {
    std::array<char, 4096> buffer{};
    const ssize_t size = file ? read(file.get(), buffer.data(), buffer.size()) : 0;
    return {buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
}

void fill(std::set<ProcessId>& processes, const std::function<std::vector<ProcessId>()>& source) {
    if (source) {
        const std::vector<ProcessId> found = source();
        processes.insert(found.begin(), found.end());
    }
}

std::string baseName(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

} // namespace

SessionFence::SessionFence(const ProcessReader& reader, Sources sources)
    : reader_(reader), sources_(std::move(sources)), peers_(reader) {}

bool SessionFence::isProtected(ProcessId process) {
    return reason(process).has_value();
}

std::optional<ProtectionReason> SessionFence::reason(ProcessId process) {
    const auto now = std::chrono::steady_clock::now();
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
    ProtectionCandidate candidate{.process = process,
                                  .user = status->realUser,
                                  .isKernelThread = stat->isKernelThread,
                                  .controlGroup = controlGroup(process),
                                  .name = stat->comm,
                                  .executable = baseName(executable.value_or("")),
                                  .isAutostarted = false,
                                  .hasRegularWindow = false};
    candidate.isAutostarted =
        sources_.isAutostarted && sources_.isAutostarted(reader_.commandLine(process), executable);
    candidate.hasRegularWindow =
        candidate.isAutostarted && sources_.hasRegularWindow && sources_.hasRegularWindow(process);
    return protection(candidate, session_);
}

SessionFacts SessionFence::gather() {
    SessionFacts facts;
    facts.self = getpid();
    facts.user = getuid();
    facts.controlGroup = controlGroup(facts.self);

    auto ancestor = reader_.stat(facts.self);
    for (int i = 0; i < ancestorLimit && ancestor && ancestor->parent > 0; ++i) {
        facts.ancestors.insert(ancestor->parent);
        ancestor = reader_.stat(ancestor->parent);
    }
    fill(facts.display, sources_.display);

    for (const std::string& path : sessionManagerSockets(variable("SESSION_MANAGER"))) {
        addListener(facts.session, path);
    }
    const std::string session = variable("XDG_SESSION_ID");
    if (!session.empty() && session.find('/') == std::string::npos) {
        const FileDescriptor file(
            open((sources_.loginSessions / session).c_str(), O_RDONLY | O_CLOEXEC));
        if (const auto leader = sessionLeader(readAll(file))) {
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

std::string SessionFence::controlGroup(ProcessId process) const {
    return parseCgroup(readAll(reader_.open(process, "cgroup")));
}

std::string SessionFence::variable(const char* name) const {
    const char* value = sources_.environment ? sources_.environment(name) : std::getenv(name);
    return value ? value : "";
}

void SessionFence::addListener(std::set<ProcessId>& processes, const std::string& path) {
    if (const auto process = peers_.listener(path)) {
        processes.insert(*process);
    }
}

} // namespace calmora
