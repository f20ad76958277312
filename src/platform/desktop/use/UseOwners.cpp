// SPDX-License-Identifier: MIT
#include "platform/desktop/use/UseOwners.h"

#include "platform/linux/proc/ProcessReader.h"

#include <algorithm>
#include <filesystem>
#include <unistd.h>
#include <utility>

namespace calmora {
namespace {

constexpr std::size_t mostProcesses = 20'000;

std::string_view withoutEnding(std::string_view name) {
    constexpr std::string_view ending = ".desktop";
    return name.ends_with(ending) ? name.substr(0, name.size() - ending.size()) : name;
}

/// Some say the path of their program.
std::string plain(std::string_view name) {
    std::string result;
    for (const char c : withoutEnding(name.substr(name.rfind('/') + 1))) {
        if (c >= 'A' && c <= 'Z') {
            result += static_cast<char>(c - 'A' + 'a');
        } else if (c != ' ' && c != '-' && c != '_') {
            result += c;
        }
    }
    return result;
}

std::string_view lastPart(std::string_view name) {
    return name.substr(name.rfind('.') + 1);
}

std::string fileName(const std::optional<std::string>& path) {
    return path ? std::filesystem::path(*path).filename().string() : std::string();
}

} // namespace

bool mayMean(std::string_view name, std::string_view known) {
    const std::string one = plain(name);
    const std::string other = plain(known);
    return !one.empty() && !other.empty() &&
           (one == other || lastPart(one) == other || one == lastPart(other));
}

UseOwners::UseOwners(const ProcessReader& reader, std::function<ApplicationSnapshot()> running)
    : reader_(reader), running_(std::move(running)) {}

std::vector<ProcessId> UseOwners::behind(ProcessId peer) const {
    std::vector<ProcessId> result{peer};
    if (const auto details = reader_.details(peer); details && details->flatpak) {
        const auto inside = called(details->flatpak->applicationId);
        result.insert(result.end(), inside.begin(), inside.end());
    }
    return result;
}

std::vector<ProcessId> UseOwners::called(std::string_view name) const {
    std::vector<ProcessId> result;
    if (plain(name).empty()) {
        return result;
    }
    for (const WorkspaceApplication& application : running_()) {
        const bool isMeant = mayMean(name, application.bundleIdentifier.value_or("")) ||
                             mayMean(name, application.localizedName.value_or(""));
        for (const ProcessId process : application.processes()) {
            if (isMeant || mayMean(name, fileName(reader_.executable(process)))) {
                result.push_back(process);
            }
        }
    }
    return result;
}

bool UseOwners::runs(ProcessId process, std::string_view program) const {
    return fileName(reader_.executable(process)) == program;
}

std::vector<ProcessId> UseOwners::calling(ProcessId ownId, std::string_view program) const {
    const auto callsItselfSo = [&](ProcessId process) {
        const auto status = reader_.status(process);
        return status && (status->namespaceIds.empty() ? process == ownId
                                                       : status->namespaceIds.back() == ownId);
    };
    if (callsItselfSo(ownId) && runs(ownId, program)) {
        return {ownId};
    }
    std::vector<ProcessId> all = reader_.processesOf(::getuid(), mostProcesses);
    std::erase_if(all, [&](ProcessId process) { return !callsItselfSo(process); });
    std::vector<ProcessId> running;
    std::ranges::copy_if(all, std::back_inserter(running),
                         [&](ProcessId process) { return runs(process, program); });
    return running.empty() ? all : running;
}

} // namespace calmora
