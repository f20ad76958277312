#include "settings/AppSettings.h"

#include <utility>

namespace calmora {

bool showsCPU(ResourceDisplay display) {
    return display == ResourceDisplay::cpuOnly || display == ResourceDisplay::both;
}

bool showsMemory(ResourceDisplay display) {
    return display == ResourceDisplay::memoryOnly || display == ResourceDisplay::both;
}

void AppSettings::addToNeverQuit(const std::string& bundleIdentifier) {
    std::set<std::string> list = neverQuitApps();
    list.insert(bundleIdentifier);
    neverQuitApps.setAndNotify(std::move(list));
}

void AppSettings::removeFromNeverQuit(const std::string& bundleIdentifier) {
    std::set<std::string> list = neverQuitApps();
    list.erase(bundleIdentifier);
    neverQuitApps.setAndNotify(std::move(list));
}

} // namespace calmora
