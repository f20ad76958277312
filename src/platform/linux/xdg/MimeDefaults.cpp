#include "platform/linux/xdg/MimeDefaults.h"

#include "platform/linux/xdg/KeyFile.h"
#include "platform/linux/xdg/TextFile.h"

#include <algorithm>
#include <set>

namespace calmora {

namespace {

/// The applications of one MIME type in one file, best first, by id without ".desktop".
struct MimeApplications {
    std::vector<std::string> defaults;
    std::vector<std::string> added;
    std::vector<std::string> removed;
};

std::vector<std::string> idsOf(std::string_view value) {
    std::vector<std::string> ids = splitList(value);
    constexpr std::string_view ending = ".desktop";
    for (std::string& id : ids) {
        if (id.ends_with(ending)) {
            id.resize(id.size() - ending.size());
        }
    }
    return ids;
}

/// Parses a mimeapps.list or mimeinfo.cache for one MIME type.
/// Source: freedesktop Association between MIME types and applications.
MimeApplications parseMimeApplications(std::string_view text, std::string_view mimeType) {
    MimeApplications applications;
    walkKeyFile(text, [&](const KeyFileLine& line) {
        if (line.key != mimeType) {
            return true;
        }
        if (line.group == "Default Applications") {
            applications.defaults = idsOf(line.value);
        } else if (line.group == "Added Associations" || line.group == "MIME Cache") {
            applications.added = idsOf(line.value);
        } else if (line.group == "Removed Associations") {
            applications.removed = idsOf(line.value);
        }
        return true;
    });
    return applications;
}

} // namespace

std::vector<std::filesystem::path> mimeApplicationLists(const BaseDirectories& directories) {
    std::vector<std::filesystem::path> lists;
    const auto add = [&](const std::filesystem::path& folder) {
        if (folder.empty()) {
            return;
        }
        for (const std::string& desktop : directories.currentDesktops) {
            lists.push_back(folder / (desktop + "-mimeapps.list"));
        }
        lists.push_back(folder / "mimeapps.list");
    };
    add(directories.configHome);
    std::ranges::for_each(directories.configDirs, add);
    if (!directories.dataHome.empty()) {
        add(directories.dataHome / "applications");
    }
    for (const std::filesystem::path& folder : directories.dataDirs) {
        add(folder / "applications");
    }
    return lists;
}

std::string defaultApplication(std::string_view mimeType,
                               const std::vector<std::filesystem::path>& lists,
                               const std::vector<std::filesystem::path>& caches,
                               const std::function<bool(const std::string&)>& accept) {
    std::vector<MimeApplications> found;
    for (const auto* files : {&lists, &caches}) {
        for (const std::filesystem::path& file : *files) {
            if (const auto text = readTextFile(file)) {
                found.push_back(parseMimeApplications(*text, mimeType));
            }
        }
    }
    for (const MimeApplications& applications : found) {
        const auto wanted = std::ranges::find_if(applications.defaults, accept);
        if (wanted != applications.defaults.end()) {
            return *wanted;
        }
    }
    std::set<std::string> removed;
    for (const MimeApplications& applications : found) {
        for (const std::string& id : applications.added) {
            if (!removed.contains(id) && accept(id)) {
                return id;
            }
        }
        removed.insert(applications.removed.begin(), applications.removed.end());
    }
    return {};
}

} // namespace calmora
