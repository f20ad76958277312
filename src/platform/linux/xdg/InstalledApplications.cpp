// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/InstalledApplications.h"

#include "platform/linux/xdg/ExecResolver.h"
#include "platform/linux/xdg/KeyFile.h"
#include "platform/linux/xdg/TextFile.h"
#include "support/TextHelpers.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include <dirent.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

namespace calmora {

namespace {

constexpr std::string_view ending = ".desktop";

std::int64_t nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

bool isExecutable(const std::filesystem::path& path) {
    return access(path.c_str(), X_OK) == 0;
}

/// The applications of one MIME type in one file, best first, by id without ".desktop".
struct MimeApplications {
    std::vector<std::string> defaults;
    std::vector<std::string> added;
    std::vector<std::string> removed;
};

std::vector<std::string> idsOf(std::string_view value) {
    std::vector<std::string> ids = splitList(value);
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

/// The mimeapps.list files, most important first: per desktop and general, in configuration and
/// data folders.
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

/// The id of the first application for a MIME type that `accept`s: default ones, then added ones,
/// folder by folder, then those in `caches` (mimeinfo.cache files). A removed association hides
/// less important ones. Empty if there is none.
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

} // namespace

InstalledApplications::InstalledApplications(BaseDirectories directories,
                                             std::vector<std::string> locales)
    : directories_(std::move(directories)), locales_(std::move(locales)) {}

bool InstalledApplications::refresh() {
    if (hasScanned_ && !hasChanged()) {
        return false;
    }
    scan();
    hasScanned_ = true;
    return true;
}

InstalledApplications::Stamp InstalledApplications::stampOf(const std::filesystem::path& path) {
    struct stat info{};
    if (stat(path.c_str(), &info) != 0) {
        return {};
    }
    return {true, nanoseconds(info.st_mtim), info.st_ino,
            S_ISDIR(info.st_mode) ? 0 : static_cast<std::uint64_t>(info.st_size)};
}

bool InstalledApplications::hasChanged() const {
    // Time stamps have the resolution of the kernel's tick: a file changed just before the scan may
    // change again unnoticed.
    constexpr std::int64_t tick = 20'000'000;
    return std::ranges::any_of(watched_, [&](const auto& watched) {
        const auto& [path, stamp] = watched;
        return stamp.modifiedNanoseconds + tick >= scannedAt_ || stampOf(path) != stamp;
    });
}

void InstalledApplications::scan() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    scannedAt_ = nanoseconds(now);

    Scan result;
    std::vector<std::filesystem::path> dataDirs = directories_.dataDirs;
    if (!directories_.dataHome.empty()) {
        dataDirs.insert(dataDirs.begin(), directories_.dataHome);
    }
    std::vector<std::filesystem::path> caches;
    for (const std::filesystem::path& folder : dataDirs) {
        scanFolder(folder / "applications", {}, 0, Folder::applications, result);
        caches.push_back(folder / "applications/mimeinfo.cache");
    }
    if (!directories_.configHome.empty()) {
        scanFolder(directories_.configHome / "autostart", {}, 0, Folder::usersAutostart, result);
    }
    for (const std::filesystem::path& folder : directories_.configDirs) {
        scanFolder(folder / "autostart", {}, 0, Folder::systemsAutostart, result);
    }
    std::erase_if(result.entries, [](const DesktopEntry& entry) { return entry.hidden; });
    resolvePrograms(result);

    const auto lists = mimeApplicationLists(directories_);
    for (const auto* files : {&lists, &std::as_const(caches)}) {
        for (const std::filesystem::path& file : *files) {
            result.watched[file] = stampOf(file);
        }
    }
    std::set<std::string> fileManagers;
    for (const DesktopEntry& entry : result.entries) {
        if (std::ranges::find(entry.categories, "FileManager") != entry.categories.end()) {
            fileManagers.insert(entry.id);
        }
    }
    std::string fileManager =
        defaultApplication("inode/directory", lists, caches,
                           [&](const std::string& id) { return fileManagers.contains(id); });
    sessionAutostart_ = judgeAutostart(result);
    parsed_ = std::move(result.parsed);
    watched_ = std::move(result.watched);
    index_ = DesktopEntryIndex(std::move(result.entries), std::move(fileManager));
}

void InstalledApplications::resolvePrograms(Scan& result) const {
    // PATH differs between sessions.
    std::vector<std::filesystem::path> folders = directories_.executableDirs;
    for (const char* usual :
         {"/usr/local/bin", "/usr/bin", "/bin", "/usr/local/games", "/usr/games", "/snap/bin"}) {
        folders.emplace_back(usual);
    }
    if (!directories_.home.empty()) {
        folders.push_back(directories_.home / ".local/bin");
    }
    std::map<std::string, ProgramFile> known; // Many entries start the same program.
    for (DesktopEntry& entry : result.entries) {
        resolveExec(entry, folders, [&](const std::string& path) {
            const auto [file, isNew] = known.try_emplace(path);
            if (isNew) {
                file->second = programFileAt(path);
            }
            return file->second;
        });
        // Programs outside the system's packages are often updated by changing a link, without
        // changing the desktop file.
        const std::string& written = entry.command.target;
        if (written.starts_with('/') && !entry.execPath.empty() && written != entry.execPath &&
            !written.starts_with("/usr/") && !written.starts_with("/bin/")) {
            result.watched[written] = stampOf(written);
        }
    }
}

void InstalledApplications::scanFolder(const std::filesystem::path& folder,
                                       const std::string& idPrefix, int depth, Folder kind,
                                       Scan& result) {
    // Take the stamp before reading, so that a change meanwhile is noticed next time.
    result.watched[folder] = stampOf(folder);
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(folder.c_str()), closedir);
    std::vector<std::string> names;
    std::vector<std::string> folders;
    while (const dirent* item = listing ? readdir(listing.get()) : nullptr) {
        const std::string name = item->d_name;
        if (name.ends_with(ending)) {
            names.push_back(name);
        } else if (!name.starts_with('.') &&
                   (item->d_type == DT_DIR || item->d_type == DT_UNKNOWN ||
                    item->d_type == DT_LNK)) {
            folders.push_back(name);
        }
    }
    std::ranges::sort(names);
    for (const std::string& name : names) {
        addFile(folder / name, idPrefix + name.substr(0, name.size() - ending.size()), kind,
                result);
    }
    constexpr int deepest = 4; // Also ends a loop of links.
    std::ranges::sort(folders);
    for (const std::string& name : folders) {
        if (depth < deepest && kind == Folder::applications &&
            std::filesystem::is_directory(folder / name)) {
            scanFolder(folder / name, idPrefix + name + "-", depth + 1, kind, result);
        }
    }
}

void InstalledApplications::addFile(const std::filesystem::path& path, const std::string& id,
                                    Folder kind, Scan& result) {
    const bool autostart = kind != Folder::applications;
    if (kind == Folder::systemsAutostart) {
        result.systemsAutostart.insert(id);
    }
    // A more important folder may have it, possibly to disable it.
    const bool isOverridden = autostart && !result.seenAutostart.insert(id).second;
    const auto known = result.byId.find(id);
    if (!autostart && known != result.byId.end()) {
        return;
    }
    const Stamp stamp = stampOf(path);
    Parsed& parsed = result.parsed[path.string()];
    const auto last = parsed_.find(path.string());
    if (last != parsed_.end() && last->second.stamp == stamp) {
        parsed = last->second;
    } else {
        parsed.stamp = stamp;
        const auto text = readTextFile(path);
        parsed.entry = text ? parseDesktopEntry(*text, locales_) : std::nullopt;
    }
    if (!parsed.entry || !canStart(*parsed.entry)) {
        return;
    }
    if (autostart && !parsed.entry->hidden) {
        result.autostart.push_back(*parsed.entry);
        result.autostart.back().id = id;
    }
    if (isOverridden || (autostart && parsed.entry->hidden)) {
        return;
    }
    if (known != result.byId.end()) {
        result.entries[known->second].isAutostart = true;
        return;
    }
    DesktopEntry entry = *parsed.entry;
    entry.id = id;
    entry.path = path;
    entry.isAutostart = autostart;
    entry.isVisible = !autostart && entry.isVisible && isShown(entry);
    result.byId.emplace(id, result.entries.size());
    result.entries.push_back(std::move(entry));
}

SessionAutostart InstalledApplications::judgeAutostart(Scan& result) {
    // Session settings copy a system entry to enable or disable it.
    const auto isOfSystem = [&](const DesktopEntry& entry) {
        return result.systemsAutostart.contains(entry.id);
    };
    for (DesktopEntry& entry : result.entries) {
        entry.isAutostart = entry.isAutostart && !isOfSystem(entry);
    }
    std::erase_if(result.autostart, std::not_fn(isOfSystem));
    return {result.autostart, result.entries};
}

bool InstalledApplications::canStart(const DesktopEntry& entry) const {
    const std::filesystem::path program = entry.tryExec;
    if (program.empty()) {
        return true;
    }
    if (program.is_absolute()) {
        return isExecutable(program);
    }
    return std::ranges::any_of(directories_.executableDirs,
                               [&](const auto& folder) { return isExecutable(folder / program); });
}

bool InstalledApplications::isShown(const DesktopEntry& entry) const {
    const auto namesThisDesktop = [&](const std::vector<std::string>& desktops) {
        const auto& current = directories_.currentDesktops;
        return std::ranges::any_of(desktops, [&](const std::string& desktop) {
            return std::ranges::find(current, loweredAscii(desktop)) != current.end();
        });
    };
    return (entry.onlyShowIn.empty() || namesThisDesktop(entry.onlyShowIn)) &&
           !namesThisDesktop(entry.notShowIn);
}

} // namespace calmora
