#include "settings/AppSettings.h"

#include "platform/UserDefaults.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace calmora {
namespace {

using Property = AppSettings::Property;

/// The key under which a preference is stored: its name.
std::string key(Property property) {
    switch (property) {
    case Property::openAtLogin:
        return "openAtLogin";
    case Property::neverQuitMusicApps:
        return "neverQuitMusicApps";
    case Property::deselectAppsByDefault:
        return "deselectAppsByDefault";
    case Property::includeFinderWindows:
        return "includeFinderWindows";
    case Property::sortOrder:
        return "sortOrder";
    case Property::resourceDisplay:
        return "resourceDisplay";
    case Property::defaultQuitMode:
        return "defaultQuitMode";
    case Property::viewBackgroundApps:
        return "viewBackgroundApps";
    case Property::groupBackgroundInstances:
        return "groupBackgroundInstances";
    case Property::autoQuitEnabled:
        return "autoQuitEnabled";
    case Property::autoQuitMinutes:
        return "autoQuitMinutes";
    case Property::playSounds:
        return "playSounds";
    case Property::neverQuitApps:
        return "neverQuitApps";
    }
    return {};
}

/// The case that is stored under a text, or `fallback` where there is none.
template <typename Case, std::size_t Count>
Case caseOf(const std::optional<std::string>& stored, const std::array<Case, Count>& cases,
            Case fallback) {
    const auto found = std::ranges::find_if(
        cases, [&](Case candidate) { return stored && *stored == rawValue(candidate); });
    return found != cases.end() ? *found : fallback;
}

DefaultsValue stored(bool value) {
    return value;
}

DefaultsValue stored(std::int64_t value) {
    return value;
}

DefaultsValue stored(const std::set<std::string>& value) {
    return std::vector<std::string>(value.begin(), value.end());
}

template <typename Case>
    requires std::is_enum_v<Case>
DefaultsValue stored(Case value) {
    return std::string(rawValue(value));
}

} // namespace

std::string_view rawValue(SortOrder order) {
    switch (order) {
    case SortOrder::alphabetical:
        return "alphabetical";
    case SortOrder::cpuUsage:
        return "cpuUsage";
    case SortOrder::memoryUsage:
        return "memoryUsage";
    }
    return {};
}

std::string_view rawValue(ResourceDisplay display) {
    switch (display) {
    case ResourceDisplay::cpuOnly:
        return "cpuOnly";
    case ResourceDisplay::memoryOnly:
        return "memoryOnly";
    case ResourceDisplay::both:
        return "both";
    case ResourceDisplay::none:
        return "none";
    }
    return {};
}

std::string_view rawValue(QuitMode mode) {
    switch (mode) {
    case QuitMode::normal:
        return "normal";
    case QuitMode::force:
        return "force";
    }
    return {};
}

bool showsCPU(ResourceDisplay display) {
    return display == ResourceDisplay::cpuOnly || display == ResourceDisplay::both;
}

bool showsMemory(ResourceDisplay display) {
    return display == ResourceDisplay::memoryOnly || display == ResourceDisplay::both;
}

AppSettings::AppSettings(UserDefaults& defaults) : defaults_(defaults) {
    defaults_.registerDefaults({
        {key(Property::openAtLogin), stored(values_.openAtLogin)},
        {key(Property::neverQuitMusicApps), stored(values_.neverQuitMusicApps)},
        {key(Property::deselectAppsByDefault), stored(values_.deselectAppsByDefault)},
        {key(Property::includeFinderWindows), stored(values_.includeFinderWindows)},
        {key(Property::sortOrder), stored(values_.sortOrder)},
        {key(Property::resourceDisplay), stored(values_.resourceDisplay)},
        {key(Property::defaultQuitMode), stored(values_.defaultQuitMode)},
        {key(Property::viewBackgroundApps), stored(values_.viewBackgroundApps)},
        {key(Property::groupBackgroundInstances), stored(values_.groupBackgroundInstances)},
        {key(Property::autoQuitEnabled), stored(values_.autoQuitEnabled)},
        {key(Property::autoQuitMinutes), stored(values_.autoQuitMinutes)},
        {key(Property::playSounds), stored(values_.playSounds)},
        {key(Property::neverQuitApps), stored(values_.neverQuitApps)},
    });

    values_.openAtLogin = defaults_.boolean(key(Property::openAtLogin));
    values_.neverQuitMusicApps = defaults_.boolean(key(Property::neverQuitMusicApps));
    values_.deselectAppsByDefault = defaults_.boolean(key(Property::deselectAppsByDefault));
    values_.includeFinderWindows = defaults_.boolean(key(Property::includeFinderWindows));
    values_.sortOrder =
        caseOf(defaults_.string(key(Property::sortOrder)), allSortOrders, values_.sortOrder);
    values_.resourceDisplay = caseOf(defaults_.string(key(Property::resourceDisplay)),
                                     allResourceDisplays, values_.resourceDisplay);
    values_.defaultQuitMode = caseOf(defaults_.string(key(Property::defaultQuitMode)), allQuitModes,
                                     values_.defaultQuitMode);
    values_.viewBackgroundApps = defaults_.boolean(key(Property::viewBackgroundApps));
    values_.groupBackgroundInstances = defaults_.boolean(key(Property::groupBackgroundInstances));
    values_.autoQuitEnabled = defaults_.boolean(key(Property::autoQuitEnabled));
    values_.autoQuitMinutes = defaults_.integer(key(Property::autoQuitMinutes));
    values_.playSounds = defaults_.boolean(key(Property::playSounds));
    const auto list = defaults_.stringArray(key(Property::neverQuitApps));
    if (list) {
        values_.neverQuitApps = {list->begin(), list->end()};
    }
}

Subscription AppSettings::observe(Property property, std::function<void()> handler) {
    return changed_.connect([property, handler = std::move(handler)](Property changed) {
        if (changed == property) {
            handler();
        }
    });
}

Subscription AppSettings::observeAny(std::function<void(Property)> handler) {
    return changed_.connect(std::move(handler));
}

template <typename Value>
void AppSettings::write(Property property, Value& field, Value value) {
    const bool isChange = field != value;
    field = std::move(value);
    defaults_.set(key(property), stored(field));
    if (isChange) {
        changed_.emit(property);
    }
}

void AppSettings::setOpenAtLogin(bool value) {
    write(Property::openAtLogin, values_.openAtLogin, value);
}

void AppSettings::setNeverQuitMusicApps(bool value) {
    write(Property::neverQuitMusicApps, values_.neverQuitMusicApps, value);
}

void AppSettings::setDeselectAppsByDefault(bool value) {
    write(Property::deselectAppsByDefault, values_.deselectAppsByDefault, value);
}

void AppSettings::setIncludeFinderWindows(bool value) {
    write(Property::includeFinderWindows, values_.includeFinderWindows, value);
}

void AppSettings::setSortOrder(SortOrder value) {
    write(Property::sortOrder, values_.sortOrder, value);
}

void AppSettings::setResourceDisplay(ResourceDisplay value) {
    write(Property::resourceDisplay, values_.resourceDisplay, value);
}

void AppSettings::setDefaultQuitMode(QuitMode value) {
    write(Property::defaultQuitMode, values_.defaultQuitMode, value);
}

void AppSettings::setViewBackgroundApps(bool value) {
    write(Property::viewBackgroundApps, values_.viewBackgroundApps, value);
}

void AppSettings::setGroupBackgroundInstances(bool value) {
    write(Property::groupBackgroundInstances, values_.groupBackgroundInstances, value);
}

void AppSettings::setAutoQuitEnabled(bool value) {
    write(Property::autoQuitEnabled, values_.autoQuitEnabled, value);
}

void AppSettings::setAutoQuitMinutes(std::int64_t value) {
    write(Property::autoQuitMinutes, values_.autoQuitMinutes, value);
}

void AppSettings::setPlaySounds(bool value) {
    write(Property::playSounds, values_.playSounds, value);
}

void AppSettings::setNeverQuitApps(std::set<std::string> value) {
    write(Property::neverQuitApps, values_.neverQuitApps, std::move(value));
}

void AppSettings::addToNeverQuit(const std::string& bundleIdentifier) {
    values_.neverQuitApps.insert(bundleIdentifier);
    defaults_.set(key(Property::neverQuitApps), stored(values_.neverQuitApps));
    changed_.emit(Property::neverQuitApps);
}

void AppSettings::removeFromNeverQuit(const std::string& bundleIdentifier) {
    values_.neverQuitApps.erase(bundleIdentifier);
    defaults_.set(key(Property::neverQuitApps), stored(values_.neverQuitApps));
    changed_.emit(Property::neverQuitApps);
}

void AppSettings::resetToDefaults() {
    const Values initial;
    setOpenAtLogin(initial.openAtLogin);
    setNeverQuitMusicApps(initial.neverQuitMusicApps);
    setDeselectAppsByDefault(initial.deselectAppsByDefault);
    setIncludeFinderWindows(initial.includeFinderWindows);
    setSortOrder(initial.sortOrder);
    setResourceDisplay(initial.resourceDisplay);
    setDefaultQuitMode(initial.defaultQuitMode);
    setViewBackgroundApps(initial.viewBackgroundApps);
    setGroupBackgroundInstances(initial.groupBackgroundInstances);
    setAutoQuitEnabled(initial.autoQuitEnabled);
    setAutoQuitMinutes(initial.autoQuitMinutes);
    setPlaySounds(initial.playSounds);
    setNeverQuitApps(initial.neverQuitApps);
}

} // namespace calmora
