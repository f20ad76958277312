// SPDX-License-Identifier: MIT
#include "settings/NeverQuitList.h"

#include "autoquit/catalogue/KnownApps.h"
#include "platform/Text.h"
#include "settings/AppSettings.h"

#include <algorithm>

namespace calmora {

NeverQuitList::NeverQuitList(const AppSettings& settings, const Workspace& workspace)
    : stored_(settings.neverQuitApps()), workspace_(workspace) {
    for (const std::string& identifier : stored_) {
        canonical_.insert(workspace_.canonicalIdentifier(identifier));
    }
}

bool NeverQuitList::contains(const std::string& bundleIdentifier) const {
    return stored_.contains(bundleIdentifier) || canonical_.contains(bundleIdentifier);
}

bool NeverQuitList::contains(const std::string& bundleIdentifier,
                             std::span<const std::string> otherIdentifiers) const {
    return contains(bundleIdentifier) ||
           std::ranges::any_of(otherIdentifiers,
                               [this](const std::string& other) { return contains(other); });
}

std::vector<std::string> NeverQuitList::storedFor(const std::string& bundleIdentifier) const {
    std::vector<std::string> result;
    for (const std::string& identifier : stored_) {
        if (identifier == bundleIdentifier ||
            workspace_.canonicalIdentifier(identifier) == bundleIdentifier) {
            result.push_back(identifier);
        }
    }
    return result;
}

std::string appDisplayName(const std::string& bundleIdentifier, const Workspace& workspace) {
    if (const auto known = KnownApps::lookup(bundleIdentifier)) {
        return known->displayName;
    }
    const auto installed = workspace.installedApplication(bundleIdentifier);
    return installed ? installed->displayName : bundleIdentifier;
}

std::optional<Image> appIcon(const std::string& bundleIdentifier, const Workspace& workspace) {
    const auto installed = workspace.installedApplication(bundleIdentifier);
    return installed ? installed->icon : std::nullopt;
}

std::vector<ProtectedApp> protectedApps(const AppSettings& settings, const Platform& platform) {
    std::vector<ProtectedApp> apps;
    for (const std::string& identifier : settings.neverQuitApps()) {
        apps.push_back({identifier, appDisplayName(identifier, platform.workspace)});
    }
    std::ranges::stable_sort(apps, [&](const ProtectedApp& a, const ProtectedApp& b) {
        return platform.text.compare(a.displayName, b.displayName) < 0;
    });
    return apps;
}

std::vector<WorkspaceApplication> addAppCandidates(const Platform& platform) {
    std::vector<WorkspaceApplication> candidates = platform.workspace.runningApplications();
    std::erase_if(candidates, [](const WorkspaceApplication& app) {
        return app.activationPolicy != ActivationPolicy::regular || !app.bundleIdentifier;
    });
    std::ranges::stable_sort(candidates,
                             [&](const WorkspaceApplication& a, const WorkspaceApplication& b) {
                                 return platform.text.compare(a.localizedName.value_or(""),
                                                              b.localizedName.value_or("")) < 0;
                             });
    return candidates;
}

} // namespace calmora
