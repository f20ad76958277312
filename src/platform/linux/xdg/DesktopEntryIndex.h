// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/xdg/DesktopEntry.h"

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace calmora {

/// Immutable index of the installed applications. Returned pointers live as long as the index; null
/// means none.
class DesktopEntryIndex {
  public:
    using Entries = std::span<const DesktopEntry* const>;

    DesktopEntryIndex() = default;

    /// `fileManager` is the id of the application that opens folders, empty if none. Of entries
    /// with the same id the first counts.
    explicit DesktopEntryIndex(std::vector<DesktopEntry> entries, std::string fileManager = {});

    DesktopEntryIndex(DesktopEntryIndex&&) = default;
    DesktopEntryIndex& operator=(DesktopEntryIndex&&) = default;
    DesktopEntryIndex(const DesktopEntryIndex&) = delete;
    DesktopEntryIndex& operator=(const DesktopEntryIndex&) = delete;

    /// The entry with this id, exactly.
    [[nodiscard]] const DesktopEntry* withId(std::string_view id) const {
        return best(ids_, std::string(id));
    }

    /// The entry whose file this is.
    [[nodiscard]] const DesktopEntry* withPath(std::string_view path) const {
        return best(paths_, std::string(path));
    }

    /// The entries with this StartupWMClass, best first: id equal to the key, then visible ones,
    /// then by length of Exec.
    [[nodiscard]] Entries withStartupWmClass(std::string_view key) const {
        return all(wmClasses_, std::string(key));
    }

    /// Case-insensitive withStartupWmClass().
    [[nodiscard]] Entries withStartupWmClassIgnoringCase(std::string_view key) const;

    /// The entries whose command has this key, best first as for StartupWMClass.
    [[nodiscard]] Entries withExecKey(std::string_view key) const {
        return all(execKeys_, std::string(key));
    }

    /// The entries that start this file, best first: visible ones, then by length of Exec.
    [[nodiscard]] Entries withExecPath(std::string_view path) const {
        return all(execPaths_, std::string(path));
    }

    /// The only visible entry whose id ends in a dot and this word, ignoring case.
    [[nodiscard]] const DesktopEntry* onlyVisibleWithIdEnd(std::string_view word) const;

    /// The only visible entry with this unlocalized name, ignoring case.
    [[nodiscard]] const DesktopEntry* onlyVisibleWithName(std::string_view name) const;

    [[nodiscard]] std::span<const DesktopEntry> entries() const { return entries_; }

    /// The id of the application that opens folders; empty if none.
    [[nodiscard]] const std::string& fileManager() const { return fileManager_; }

  private:
    using Map = std::unordered_map<std::string, std::vector<const DesktopEntry*>>;

    [[nodiscard]] static Entries all(const Map& map, const std::string& key);
    [[nodiscard]] static const DesktopEntry* best(const Map& map, const std::string& key);
    [[nodiscard]] static const DesktopEntry* onlyVisible(const Map& map, const std::string& key);

    /// Never changes in size: the maps point into it.
    std::vector<DesktopEntry> entries_;
    std::string fileManager_;
    Map ids_;
    Map wmClasses_;
    Map lowerWmClasses_;
    Map execKeys_;
    Map execPaths_;
    Map idEnds_;
    Map names_;
    Map paths_;
};

} // namespace calmora
