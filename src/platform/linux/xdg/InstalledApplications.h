#pragma once

#include "platform/linux/xdg/BaseDirectories.h"
#include "platform/linux/xdg/DesktopEntry.h"
#include "platform/linux/xdg/DesktopEntryIndex.h"
#include "platform/linux/xdg/SessionAutostart.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace calmora {

/// Scans the folders of desktop files into an index, and again when they changed. Main thread.
class InstalledApplications {
  public:
    /// Reads nothing yet. `locales` are the wanted languages of names, see messageLocales().
    InstalledApplications(BaseDirectories directories, std::vector<std::string> locales);

    /// The applications as of the last refresh(); empty before the first.
    [[nodiscard]] const DesktopEntryIndex& index() const { return index_; }

    /// What the system starts with the session as of the last refresh().
    [[nodiscard]] const SessionAutostart& sessionAutostart() const { return sessionAutostart_; }

    /// Scans when a folder or a list of default applications changed since the last time; true
    /// when the index was replaced, which ends all pointers into the old one.
    /// Cost: one stat a folder; when something changed one stat a file, reading those that are
    /// new, and about 20 µs for each program that the entries start.
    bool refresh();

  private:
    enum class Folder { applications, usersAutostart, systemsAutostart };

    struct Stamp {
        bool exists = false;
        std::int64_t modifiedNanoseconds = 0;
        std::uint64_t inode = 0;
        std::uint64_t size = 0;

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    /// A parsed file; no entry for one that describes no application.
    struct Parsed {
        Stamp stamp;
        std::optional<DesktopEntry> entry;
    };

    /// What one scan gathers.
    struct Scan {
        std::vector<DesktopEntry> entries;
        std::map<std::string, std::size_t> byId;
        /// All entries of autostart folders, and the ids that the system's ones have.
        std::vector<DesktopEntry> autostart;
        std::set<std::string> systemsAutostart;
        std::set<std::string> seenAutostart;
        std::map<std::string, Parsed> parsed;
        std::map<std::filesystem::path, Stamp> watched;
    };

    [[nodiscard]] static Stamp stampOf(const std::filesystem::path& path);
    [[nodiscard]] bool hasChanged() const;
    void scan();
    /// Finds the files that the entries start.
    void resolvePrograms(Scan& result) const;
    void scanFolder(const std::filesystem::path& folder, const std::string& idPrefix, int depth,
                    Folder kind, Scan& result);
    void addFile(const std::filesystem::path& path, const std::string& id, Folder kind,
                 Scan& result);
    [[nodiscard]] static SessionAutostart judgeAutostart(Scan& result);
    [[nodiscard]] bool canStart(const DesktopEntry& entry) const;
    [[nodiscard]] bool isShown(const DesktopEntry& entry) const;

    BaseDirectories directories_;
    std::vector<std::string> locales_;
    DesktopEntryIndex index_;
    SessionAutostart sessionAutostart_;
    std::map<std::string, Parsed> parsed_;
    std::map<std::filesystem::path, Stamp> watched_;
    std::int64_t scannedAt_ = 0;
    bool hasScanned_ = false;
};

} // namespace calmora
