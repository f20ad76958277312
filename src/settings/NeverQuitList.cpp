#include "settings/NeverQuitList.h"

#include "platform/Workspace.h"
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

} // namespace calmora
