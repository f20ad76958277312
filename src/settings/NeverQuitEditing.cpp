#include "settings/NeverQuitEditing.h"

#include "autoquit/catalogue/KnownApps.h"
#include "platform/Text.h"
#include "settings/AppSettings.h"

#include <algorithm>

namespace calmora {

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
