// SPDX-License-Identifier: MIT
#include "platform/linux/windows/WindowOwner.h"

#include <algorithm>
#include <set>
#include <strings.h>

namespace calmora {

namespace {

/// The kernel cuts process names at this many bytes.
constexpr std::size_t cutName = 15;

/// Compares names up to the first dot if either is short.
bool sameHost(std::string_view a, std::string_view b) {
    if (a.find('.') != std::string_view::npos && b.find('.') != std::string_view::npos) {
        return a == b;
    }
    return a.substr(0, a.find('.')) == b.substr(0, b.find('.'));
}

bool isCalled(const OwnerProcess& process, const std::string& name) {
    return !name.empty() && std::ranges::any_of(process.names, [&](const std::string& own) {
        const bool isEqual = ::strcasecmp(own.c_str(), name.c_str()) == 0;
        return isEqual ||
               (own.size() == cutName && ::strncasecmp(own.c_str(), name.c_str(), cutName) == 0);
    });
}

/// The owner by the window's own claim alone.
WindowOwner claimedOwner(const OwnerClaims& claims, const std::optional<OwnerProcess>& property) {
    // A program in another pid namespace would not know its id in ours.
    if (!property || !property->isOurs || property->ids.size() != 1) {
        return {};
    }
    // A local client that passed its connection on need not name its machine.
    const bool isNear = claims.client || !claims.machine.empty();
    const bool agrees = !claims.systemTells || isCalled(*property, claims.instance) ||
                        isCalled(*property, claims.className);
    if (!isNear || !agrees) {
        return {};
    }
    return {claims.property, ProcessCertainty::claimed, false};
}

} // namespace

WindowOwner windowOwner(const OwnerClaims& claims, std::string_view hostName,
                        const OwnerLookup& lookUp) {
    const WindowOwner remote{{}, ProcessCertainty::unknown, true};
    const bool isElsewhere = !claims.machine.empty() && !sameHost(claims.machine, hostName);
    const auto process = [&](std::optional<ProcessId> id) {
        auto found = id ? lookUp.process(*id) : std::nullopt;
        return found && found->startTime <= claims.firstSeen ? found : std::nullopt;
    };
    const auto clientStart = claims.client ? lookUp.startTime(*claims.client) : std::nullopt;
    if (!clientStart || *clientStart > claims.firstSeen) {
        return isElsewhere ? remote : claimedOwner(claims, process(claims.property));
    }
    const WindowOwner certain{claims.client, ProcessCertainty::certain, false};
    if (claims.property == claims.client) {
        return certain;
    }
    if (!claims.property) {
        return isElsewhere ? remote : certain;
    }
    const auto client = process(claims.client);
    if (!client) { // It has just ended.
        return {};
    }
    if (client->ids.size() > 1) {
        // A sandboxed program has another id and perhaps another host name.
        return client->ids.back() == *claims.property || !isElsewhere ? certain : remote;
    }
    return isElsewhere || process(claims.property) ? remote : certain;
}

void dropContestedClaims(std::span<TopLevelWindow> windows) {
    std::set<ProcessId> certain;
    for (const TopLevelWindow& window : windows) {
        if (window.process && window.certainty == ProcessCertainty::certain) {
            certain.insert(*window.process);
        }
    }
    for (TopLevelWindow& window : windows) {
        if (window.certainty == ProcessCertainty::claimed && certain.contains(*window.process)) {
            window.process.reset();
            window.certainty = ProcessCertainty::unknown;
        }
    }
}

} // namespace calmora
