// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/DesktopEntryIndex.h"

#include "support/TextHelpers.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace calmora {

DesktopEntryIndex::DesktopEntryIndex(std::vector<DesktopEntry> entries, std::string fileManager)
    : entries_(std::move(entries)), fileManager_(std::move(fileManager)) {
    const auto add = [](Map& map, const std::string& key, const DesktopEntry& entry) {
        if (!key.empty()) {
            map[key].push_back(&entry);
        }
    };
    for (const DesktopEntry& entry : entries_) {
        if (ids_.contains(entry.id)) {
            continue;
        }
        const std::string lowerId = loweredAscii(entry.id);
        add(ids_, entry.id, entry);
        add(wmClasses_, entry.startupWmClass, entry);
        add(lowerWmClasses_, loweredAscii(entry.startupWmClass), entry);
        add(execKeys_, entry.execKey, entry);
        add(execPaths_, entry.execPath, entry);
        add(idEnds_, lowerId.substr(lowerId.rfind('.') + 1), entry);
        add(names_, loweredAscii(entry.unlocalizedName), entry);
        add(paths_, entry.path.string(), entry);
    }
    for (Map* map : {&wmClasses_, &lowerWmClasses_, &execKeys_, &execPaths_}) {
        for (auto& [key, found] : *map) {
            std::ranges::stable_sort(found, {},
                                     [wanted = loweredAscii(key)](const DesktopEntry* entry) {
                                         return std::tuple(loweredAscii(entry->id) != wanted,
                                                           !entry->isVisible, entry->exec.size());
                                     });
        }
    }
}

DesktopEntryIndex::Entries
DesktopEntryIndex::withStartupWmClassIgnoringCase(std::string_view key) const {
    return all(lowerWmClasses_, loweredAscii(key));
}

const DesktopEntry* DesktopEntryIndex::onlyVisibleWithIdEnd(std::string_view word) const {
    return onlyVisible(idEnds_, loweredAscii(word));
}

const DesktopEntry* DesktopEntryIndex::onlyVisibleWithName(std::string_view name) const {
    return onlyVisible(names_, loweredAscii(name));
}

DesktopEntryIndex::Entries DesktopEntryIndex::all(const Map& map, const std::string& key) {
    const auto found = map.find(key);
    return found == map.end() ? Entries() : Entries(found->second);
}

const DesktopEntry* DesktopEntryIndex::best(const Map& map, const std::string& key) {
    const Entries found = all(map, key);
    return found.empty() ? nullptr : found.front();
}

const DesktopEntry* DesktopEntryIndex::onlyVisible(const Map& map, const std::string& key) {
    const DesktopEntry* only = nullptr;
    for (const DesktopEntry* entry : all(map, key)) {
        if (!entry->isVisible) {
            continue;
        }
        if (only) {
            return nullptr;
        }
        only = entry;
    }
    return only;
}

} // namespace calmora
