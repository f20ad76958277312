#pragma once

#include "support/Signal.h"
#include "support/Subscription.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace calmora {

class UserDefaults;

/// How the application list is ordered.
enum class SortOrder { alphabetical, cpuUsage, memoryUsage };

/// Which resource figures a row shows.
enum class ResourceDisplay { cpuOnly, memoryOnly, both, none };

/// The user's preferred way of quitting.
enum class QuitMode { normal, force };

/// Every case, in the order in which it is offered.
inline constexpr std::array allSortOrders{SortOrder::alphabetical, SortOrder::cpuUsage,
                                          SortOrder::memoryUsage};

/// Every case, in the order in which it is offered.
inline constexpr std::array allResourceDisplays{ResourceDisplay::cpuOnly,
                                                ResourceDisplay::memoryOnly, ResourceDisplay::both,
                                                ResourceDisplay::none};

/// Every case, in the order in which it is offered.
inline constexpr std::array allQuitModes{QuitMode::normal, QuitMode::force};

/// The text under which a case is stored.
[[nodiscard]] std::string_view rawValue(SortOrder order);

/// The text under which a case is stored.
[[nodiscard]] std::string_view rawValue(ResourceDisplay display);

/// The text under which a case is stored.
[[nodiscard]] std::string_view rawValue(QuitMode mode);

/// Whether rows show the CPU figure.
[[nodiscard]] bool showsCPU(ResourceDisplay display);

/// Whether rows show the memory figure.
[[nodiscard]] bool showsMemory(ResourceDisplay display);

/// Every preference of the user. One instance, shared by reference. Every assignment goes to the
/// defaults store at once, under the property's name; observers are told of real changes only.
/// Main thread.
class AppSettings {
  public:
    /// A preference that can be observed.
    enum class Property {
        openAtLogin,
        neverQuitMusicApps,
        deselectAppsByDefault,
        includeFinderWindows,
        sortOrder,
        resourceDisplay,
        defaultQuitMode,
        viewBackgroundApps,
        groupBackgroundInstances,
        autoQuitEnabled,
        autoQuitMinutes,
        playSounds,
        neverQuitApps,
    };

    /// Registers the default values and reads every preference. A missing key, a value of the
    /// wrong type and an unknown case read as the default. `defaults` must outlive the store.
    explicit AppSettings(UserDefaults& defaults);

    /// Calls `handler` after each change of one preference until the token ends.
    [[nodiscard]] Subscription observe(Property property, std::function<void()> handler);

    /// Calls `handler` after each change of any preference until the token ends.
    [[nodiscard]] Subscription observeAny(std::function<void(Property)> handler);

    /// The program is to be opened at login. Default false.
    [[nodiscard]] bool openAtLogin() const { return values_.openAtLogin; }

    void setOpenAtLogin(bool value);

    /// Music players start unticked and are spared by auto-quit. Default true.
    [[nodiscard]] bool neverQuitMusicApps() const { return values_.neverQuitMusicApps; }

    void setNeverQuitMusicApps(bool value);

    /// Rows start unticked. Default false.
    [[nodiscard]] bool deselectAppsByDefault() const { return values_.deselectAppsByDefault; }

    void setDeselectAppsByDefault(bool value);

    /// The file manager is listed. Default false.
    [[nodiscard]] bool includeFinderWindows() const { return values_.includeFinderWindows; }

    void setIncludeFinderWindows(bool value);

    /// Order of the application list. Default alphabetical.
    [[nodiscard]] SortOrder sortOrder() const { return values_.sortOrder; }

    void setSortOrder(SortOrder value);

    /// Figures that the rows show. Default cpuOnly.
    [[nodiscard]] ResourceDisplay resourceDisplay() const { return values_.resourceDisplay; }

    void setResourceDisplay(ResourceDisplay value);

    /// Preferred way of quitting. Default normal.
    [[nodiscard]] QuitMode defaultQuitMode() const { return values_.defaultQuitMode; }

    void setDefaultQuitMode(QuitMode value);

    /// The list shows background applications. Default false.
    [[nodiscard]] bool viewBackgroundApps() const { return values_.viewBackgroundApps; }

    void setViewBackgroundApps(bool value);

    /// Background applications are folded under their parent application. Default true.
    [[nodiscard]] bool groupBackgroundInstances() const { return values_.groupBackgroundInstances; }

    void setGroupBackgroundInstances(bool value);

    /// Inactive applications are quit automatically. Default false.
    [[nodiscard]] bool autoQuitEnabled() const { return values_.autoQuitEnabled; }

    void setAutoQuitEnabled(bool value);

    /// Minutes of inactivity after which an application is quit automatically. Any stored integer
    /// is taken as it is, 0 and negative ones included. Default 30.
    [[nodiscard]] std::int64_t autoQuitMinutes() const { return values_.autoQuitMinutes; }

    void setAutoQuitMinutes(std::int64_t value);

    /// Quitting plays a sound. Default false.
    [[nodiscard]] bool playSounds() const { return values_.playSounds; }

    void setPlaySounds(bool value);

    /// Identifiers of the protected applications, as stored. Default empty.
    [[nodiscard]] const std::set<std::string>& neverQuitApps() const {
        return values_.neverQuitApps;
    }

    void setNeverQuitApps(std::set<std::string> value);

    /// Inserts an identifier into neverQuitApps. Persists and notifies also when it was there.
    void addToNeverQuit(const std::string& bundleIdentifier);

    /// Removes an identifier from neverQuitApps. Persists and notifies also when it was not there.
    void removeFromNeverQuit(const std::string& bundleIdentifier);

    /// Assigns every preference its default through the ordinary write path, so that every key is
    /// written. The never-quit list is emptied.
    void resetToDefaults();

  private:
    /// The preferences, made with their defaults.
    struct Values {
        bool openAtLogin = false;
        bool neverQuitMusicApps = true;
        bool deselectAppsByDefault = false;
        bool includeFinderWindows = false;
        SortOrder sortOrder = SortOrder::alphabetical;
        ResourceDisplay resourceDisplay = ResourceDisplay::cpuOnly;
        QuitMode defaultQuitMode = QuitMode::normal;
        bool viewBackgroundApps = false;
        bool groupBackgroundInstances = true;
        bool autoQuitEnabled = false;
        std::int64_t autoQuitMinutes = 30;
        bool playSounds = false;
        std::set<std::string> neverQuitApps;
    };

    template <typename Value>
    void write(Property property, Value& field, Value value);

    UserDefaults& defaults_;
    Signal<Property> changed_;
    Values values_;
};

} // namespace calmora
