// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/ActivationRules.h"

#include <algorithm>
#include <map>
#include <utility>

namespace calmora {

namespace {

using CandidatesByProcess = std::map<ProcessId, const AgentCandidate*>;

/// Ancestors that only wrap an application: a script or sandbox with its identifier, and a launcher
/// script waiting for its program, whatever its name.
std::set<ProcessId> wrappersOf(const std::set<ProcessId>& applications,
                               const CandidatesByProcess& byProcess,
                               const std::function<ProcessId(ProcessId)>& parentOf) {
    const bool hasScripts = std::ranges::any_of(byProcess, [](const auto& entry) {
        return entry.second->isInstalled && entry.second->isShellScript;
    });
    std::set<ProcessId> wrappers;
    for (const ProcessId application : applications) {
        const auto own = byProcess.find(application);
        const bool isCandidate = own != byProcess.end();
        if (!hasScripts && !isCandidate) {
            continue;
        }
        static_cast<void>(anyAncestor(application, parentOf, [&](ProcessId ancestor) {
            const auto found = byProcess.find(ancestor);
            if (found != byProcess.end() &&
                (found->second->isShellScript ||
                 (isCandidate && found->second->identifier == own->second->identifier))) {
                wrappers.insert(ancestor);
            }
            return false;
        }));
    }
    return wrappers;
}

} // namespace

ActivationPolicy activationPolicy(const ActivationFacts& facts) {
    if (facts.isProtected || facts.isShell) {
        return ActivationPolicy::prohibited;
    }
    if (facts.hasRegularWindow) {
        return ActivationPolicy::regular;
    }
    return facts.hasHiddenWindow || facts.hasTrayIcon || facts.wasRegular || facts.isAgent
               ? ActivationPolicy::accessory
               : ActivationPolicy::prohibited;
}

std::vector<ProcessId> topmostAgents(std::span<const AgentCandidate> candidates,
                                     const std::set<ProcessId>& applications,
                                     const std::function<ProcessId(ProcessId)>& parentOf) {
    CandidatesByProcess byProcess;
    std::map<std::string, std::pair<std::uint64_t, ProcessId>> firstOfUnit;
    for (const AgentCandidate& candidate : candidates) {
        byProcess.emplace(candidate.process, &candidate);
        if (!candidate.unit.empty()) {
            const std::pair age{candidate.startTime, candidate.process};
            const auto [first, isNew] = firstOfUnit.emplace(candidate.unit, age);
            first->second = std::min(first->second, age);
        }
    }
    const auto isInstalled = [&](ProcessId process) {
        const auto found = byProcess.find(process);
        return found != byProcess.end() && found->second->isInstalled;
    };
    const auto isHelper = [&](const AgentCandidate& candidate) {
        if (!candidate.unit.empty() && firstOfUnit.at(candidate.unit).second != candidate.process) {
            return true;
        }
        return anyAncestor(candidate.process, parentOf, [&](ProcessId ancestor) {
            const auto found = byProcess.find(ancestor);
            return applications.contains(ancestor) || isInstalled(ancestor) ||
                   (found != byProcess.end() && found->second->identifier == candidate.identifier);
        });
    };
    const std::set<ProcessId> wrappers = wrappersOf(applications, byProcess, parentOf);
    std::vector<ProcessId> agents;
    for (const AgentCandidate& candidate : candidates) {
        if (candidate.identifier && candidate.isInstalled &&
            !applications.contains(candidate.process) && !wrappers.contains(candidate.process) &&
            !isHelper(candidate)) {
            agents.push_back(candidate.process);
        }
    }
    return agents;
}

} // namespace calmora
