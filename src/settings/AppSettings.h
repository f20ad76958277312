// SPDX-License-Identifier: MIT
#pragma once

#include "settings/Preference.h"

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace calmora {

/// How the application list is ordered.
enum class SortOrder { alphabetical, cpuUsage, memoryUsage };

/// Which resource figures a row shows.
enum class ResourceDisplay { cpuOnly, memoryOnly, both, none };

/// The user's preferred way of quitting.
enum class QuitMode { normal, force };

/// The texts under which the cases are stored, in the order of the cases.
[[nodiscard]] constexpr std::array<std::string_view, 3> rawValues(SortOrder) {
    return {"alphabetical", "cpuUsage", "memoryUsage"};
}

/// The texts under which the cases are stored, in the order of the cases.
[[nodiscard]] constexpr std::array<std::string_view, 4> rawValues(ResourceDisplay) {
    return {"cpuOnly", "memoryOnly", "both", "none"};
}

/// The texts under which the cases are stored, in the order of the cases.
[[nodiscard]] constexpr std::array<std::string_view, 2> rawValues(QuitMode) {
    return {"normal", "force"};
}

/// Whether rows show the CPU figure.
[[nodiscard]] constexpr bool showsCPU(ResourceDisplay display) {
    return display == ResourceDisplay::cpuOnly || display == ResourceDisplay::both;
}

/// Whether rows show the memory figure.
[[nodiscard]] constexpr bool showsMemory(ResourceDisplay display) {
    return display == ResourceDisplay::memoryOnly || display == ResourceDisplay::both;
}

/// All preferences with their keys and defaults. One instance, shared by reference. Main thread.
class AppSettings final : public PreferenceTable {
  public:
    /// Reads every preference. `defaults` must outlive the settings.
    explicit AppSettings(UserDefaults& defaults) : PreferenceTable(defaults) {}

    /// The program opens at login.
    Preference<bool> openAtLogin{*this, "openAtLogin", false};

    /// Music players start unticked and are never quit automatically.
    Preference<bool> neverQuitMusicApps{*this, "neverQuitMusicApps", true};

    /// Rows start unticked.
    Preference<bool> deselectAppsByDefault{*this, "deselectAppsByDefault", false};

    /// The file manager is listed.
    Preference<bool> includeFinderWindows{*this, "includeFinderWindows", false};

    /// Order of the application list.
    Preference<SortOrder> sortOrder{*this, "sortOrder", SortOrder::alphabetical};

    /// Figures that the rows show.
    Preference<ResourceDisplay> resourceDisplay{*this, "resourceDisplay", ResourceDisplay::cpuOnly};

    /// Preferred way of quitting.
    Preference<QuitMode> defaultQuitMode{*this, "defaultQuitMode", QuitMode::normal};

    /// The list shows background applications.
    Preference<bool> viewBackgroundApps{*this, "viewBackgroundApps", false};

    /// Background applications are folded under their parent application.
    Preference<bool> groupBackgroundInstances{*this, "groupBackgroundInstances", true};

    /// Inactive applications are quit automatically.
    Preference<bool> autoQuitEnabled{*this, "autoQuitEnabled", false};

    /// Minutes of inactivity after which an application is quit automatically. Any integer is
    /// accepted, including 0 and negative ones.
    Preference<std::int64_t> autoQuitMinutes{*this, "autoQuitMinutes", 30};

    /// Quitting plays a sound.
    Preference<bool> playSounds{*this, "playSounds", false};

    /// Identifiers of the protected applications, as stored.
    Preference<std::set<std::string>> neverQuitApps{*this, "neverQuitApps", {}};

    /// Inserts an identifier into neverQuitApps. Persists and notifies even if it was there.
    void addToNeverQuit(const std::string& bundleIdentifier) {
        std::set<std::string> list = neverQuitApps();
        list.insert(bundleIdentifier);
        neverQuitApps.setAndNotify(std::move(list));
    }

    /// Removes an identifier from neverQuitApps. Persists and notifies even if it was not there.
    void removeFromNeverQuit(const std::string& bundleIdentifier) {
        std::set<std::string> list = neverQuitApps();
        list.erase(bundleIdentifier);
        neverQuitApps.setAndNotify(std::move(list));
    }
};

} // namespace calmora
