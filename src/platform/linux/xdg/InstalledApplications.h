// SPDX-License-Identifier: MIT
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

/// Scans desktop files into an index, again when they changed. Main thread.
class InstalledApplications {
  public:
    /// Reads nothing yet. `locales` are messageLocales().
    InstalledApplications(BaseDirectories directories, std::vector<std::string> locales);

    /// The applications as of the last refresh(); empty before the first.
    [[nodiscard]] const DesktopEntryIndex& index() const { return index_; }

    /// The system's autostart programs as of the last refresh().
    [[nodiscard]] const SessionAutostart& sessionAutostart() const { return sessionAutostart_; }

    /// Scans if a folder or a list of default applications changed. True if the index was replaced,
    /// which invalidates pointers into the old one. Cost: one stat per folder; after a change one
    /// stat per file, reading new files, and about 20 µs per program.
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

    /// A parsed file; no entry if it describes no application.
    struct Parsed {
        Stamp stamp;
        std::optional<DesktopEntry> entry;
    };

    /// State of one scan.
    struct Scan {
        std::vector<DesktopEntry> entries;
        std::map<std::string, std::size_t> byId;
        /// All autostart entries, and the ids of the system's.
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
