#include "platform/linux/xdg/DesktopEntryIndex.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace calmora {

namespace {

/// Lower case of the ASCII letters; other letters make no difference between ids.
std::string lowered(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter - 'A' + 'a');
        }
    }
    return lower;
}

} // namespace

DesktopEntryIndex::DesktopEntryIndex(std::vector<DesktopEntry> entries, std::string fileManager)
    : entries_(std::move(entries)), fileManager_(std::move(fileManager)) {
    const auto add = [](Map& map, std::string key, std::size_t at) {
        if (!key.empty()) {
            map[std::move(key)].push_back(at);
        }
    };
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        const DesktopEntry& entry = entries_[at];
        if (ids_.contains(entry.id)) {
            continue;
        }
        const std::string lowerId = lowered(entry.id);
        add(ids_, entry.id, at);
        add(lowerIds_, lowerId, at);
        add(wmClasses_, entry.startupWmClass, at);
        add(lowerWmClasses_, lowered(entry.startupWmClass), at);
        add(execKeys_, entry.execKey, at);
        add(idEnds_, lowerId.substr(lowerId.rfind('.') + 1), at);
        add(names_, lowered(entry.unlocalizedName), at);
        add(paths_, entry.path.string(), at);
    }
}

const DesktopEntry* DesktopEntryIndex::withId(std::string_view id) const {
    return best(ids_, id, id);
}

const DesktopEntry* DesktopEntryIndex::withIdIgnoringCase(std::string_view id) const {
    const DesktopEntry* exact = withId(id);
    return exact ? exact : best(lowerIds_, lowered(id), id);
}

const DesktopEntry* DesktopEntryIndex::withPath(std::string_view path) const {
    return best(paths_, path, {});
}

const DesktopEntry* DesktopEntryIndex::withStartupWmClass(std::string_view key) const {
    return best(wmClasses_, key, key);
}

const DesktopEntry* DesktopEntryIndex::withStartupWmClassIgnoringCase(std::string_view key) const {
    return best(lowerWmClasses_, lowered(key), key);
}

const DesktopEntry* DesktopEntryIndex::withExecKey(std::string_view key) const {
    return best(execKeys_, key, key);
}

const DesktopEntry* DesktopEntryIndex::onlyVisibleWithIdEnd(std::string_view word) const {
    return onlyVisible(idEnds_, lowered(word));
}

const DesktopEntry* DesktopEntryIndex::onlyVisibleWithName(std::string_view name) const {
    return onlyVisible(names_, lowered(name));
}

const DesktopEntry* DesktopEntryIndex::best(const Map& map, std::string_view key,
                                            std::string_view wanted) const {
    const auto found = map.find(std::string(key));
    if (found == map.end()) {
        return nullptr;
    }
    const std::string lowerWanted = lowered(wanted);
    const auto rank = [&](std::size_t at) {
        const DesktopEntry& entry = entries_[at];
        return std::tuple(lowered(entry.id) != lowerWanted, !entry.isVisible, entry.exec.size(),
                          at);
    };
    return &entries_[*std::ranges::min_element(found->second, {}, rank)];
}

const DesktopEntry* DesktopEntryIndex::onlyVisible(const Map& map, std::string_view key) const {
    const auto found = map.find(std::string(key));
    if (found == map.end()) {
        return nullptr;
    }
    const DesktopEntry* only = nullptr;
    for (const std::size_t at : found->second) {
        if (!entries_[at].isVisible) {
            continue;
        }
        if (only) {
            return nullptr;
        }
        only = &entries_[at];
    }
    return only;
}

} // namespace calmora
