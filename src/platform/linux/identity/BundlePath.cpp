// SPDX-License-Identifier: MIT
#include "platform/linux/identity/BundlePath.h"

#include "platform/linux/proc/ProcFiles.h"
#include "platform/linux/xdg/ExecKey.h"
#include "support/TextHelpers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

namespace calmora {

namespace {

using Components = std::vector<std::string_view>;

Components componentsOf(std::string_view path) {
    Components components;
    while (!path.empty()) {
        const std::size_t end = path.find('/');
        if (end != 0) {
            components.push_back(path.substr(0, end));
        }
        path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
    }
    return components;
}

/// The folder of the first `count` components.
std::string folderOf(const Components& components, std::size_t count) {
    std::string folder = "/";
    for (std::size_t at = 0; at < count; ++at) {
        folder += components[at];
        folder += '/';
    }
    return folder;
}

/// Letters and digits only, in lower case: "KeePassXC" and "keepass-xc" are equal.
std::string normalized(std::string_view name) {
    std::string plain;
    for (const unsigned char letter : name) {
        if (std::isalnum(letter) != 0 || letter >= 0x80) {
            plain += static_cast<char>(std::tolower(letter));
        }
    }
    return plain;
}

/// Folders shared by many programs, whatever their names.
bool isShared(std::string_view folder) {
    constexpr auto names = std::to_array<std::string_view>(
        {"systemd",  "xorg",         "jvm",   "gvfs",     "xfce4",    "lxqt",        "kf5",
         "kf6",      "libexec",      "gcc",   "dbus-1.0", "polkit-1", "gnome-shell", "at-spi2-core",
         "git-core", "openssh",      "local", "bin",      "sbin",     "lib",         "lib64",
         "share",    "applications", "games", "pkg",      "homebrew"});
    if (std::ranges::find(names, folder) != names.end()) {
        return true;
    }
    constexpr auto prefixes = std::to_array<std::string_view>(
        {"qt", "python", "perl", "ruby", "node", "php", "java", "wine", "electron", "mono",
         "dotnet", "llvm", "conda", "miniconda", "anaconda"});
    return std::ranges::any_of(prefixes,
                               [&](std::string_view prefix) { return folder.starts_with(prefix); });
}

/// Possible names of an application's folder.
class Names {
  public:
    void add(std::string_view name) {
        if (std::string plain = normalized(name); !plain.empty()) {
            names_.push_back(std::move(plain));
        }
    }

    [[nodiscard]] bool contain(std::string_view folder) const {
        return std::ranges::find(names_, normalized(folder)) != names_.end();
    }

  private:
    std::vector<std::string> names_;
};

/// The names of the executable and the whole id.
Names strictNames(std::string_view executable, const ApplicationIdentity& identity) {
    Names names;
    names.add(executable);
    names.add(programKey(executable));
    names.add(identity.desktopId.value_or(""));
    return names;
}

/// strictNames(), the name in Exec and the end of the id.
Names systemNames(std::string_view executable, const ApplicationIdentity& identity) {
    const std::string id = identity.desktopId.value_or("");
    Names names = strictNames(executable, identity);
    names.add(identity.execKey);
    names.add(id.substr(id.rfind('.') + 1));
    return names;
}

/// Whether a folder of this name holds many programs, each in its own folder.
bool isLibrary(std::string_view folder) {
    constexpr auto libraries =
        std::to_array<std::string_view>({"apps", "applications", "programs", "games", "gog games",
                                         "epic games", "compatdata", "instances", "steamapps"});
    return std::ranges::find(libraries, loweredAscii(folder)) != libraries.end();
}

/// Number of leading components of a program's folder in a library, below the first `from`
/// components; 0 if none.
std::size_t libraryFolderDepth(const Components& path, std::size_t from) {
    std::size_t depth = 0;
    // The last component is the executable, inside a folder of the library.
    for (std::size_t at = from; at + 2 < path.size(); ++at) {
        const bool isOfSteam = at > from && loweredAscii(path[at - 1]) == "steamapps";
        if (isOfSteam || isLibrary(path[at])) {
            depth = at + 2;
        }
    }
    return depth;
}

/// The deepest folder with a name of the program, below the first `root` components; 0 if none.
template <typename IsExcluded>
std::size_t deepestNamed(const Components& path, std::size_t root, const Names& names,
                         const IsExcluded& isExcluded) {
    // Other content of a library is shared.
    const std::size_t least = std::max(root + 1, libraryFolderDepth(path, root));
    for (std::size_t depth = path.size() - 1; depth >= least; --depth) {
        const std::string_view name = path[depth - 1];
        if (names.contain(name) && !isShared(name) && !isExcluded(depth)) {
            return depth;
        }
    }
    return 0;
}

bool isUserFolder(std::string_view name) {
    constexpr auto folders =
        std::to_array<std::string_view>({"Desktop", "Documents", "Downloads", "Music", "Pictures",
                                         "Public", "Templates", "Videos"});
    return std::ranges::find(folders, name) != folders.end();
}

std::size_t depthBelowHome(const Components& path, std::size_t home, const Names& names) {
    const std::size_t folders = path.size() - 1;
    return deepestNamed(path, home, names, [&](std::size_t depth) {
        // ~/.cargo/bin holds many tools, not only cargo.
        if (depth < folders && path[depth - 1].starts_with('.') && path[depth] == "bin") {
            return true;
        }
        if (depth > home + 1) {
            return false;
        }
        const bool isOwnFolder =
            depth == folders ||
            (depth + 1 == folders && (path[depth] == "bin" || path[depth] == "lib"));
        return !isOwnFolder || isUserFolder(path[depth - 1]);
    });
}

std::size_t depthBelowUsr(const Components& path, const Names& names) {
    const std::size_t folders = path.size() - 1;
    std::size_t at = 1;
    if (at < folders && path[at] == "local") {
        ++at;
    }
    constexpr auto roots =
        std::to_array<std::string_view>({"lib", "lib64", "libexec", "share", "games"});
    if (at >= folders || std::ranges::find(roots, path[at]) == roots.end()) {
        return 0;
    }
    ++at;
    if (at < folders && path[at].find("-linux-") != std::string_view::npos) {
        ++at;
    }
    return at < folders && !isShared(path[at]) && names.contain(path[at]) ? at + 1 : 0;
}

/// Depth of a snap's revision folder; 0 for a program of another snap.
std::size_t snapDepth(const Components& path, std::string_view executable, std::string_view snap) {
    const std::string name(snap.substr(0, snap.find('_')));
    for (const std::string root : {"/snap/", "/var/lib/snapd/snap/"}) {
        const std::size_t depth = componentsOf(root).size() + 2;
        if (executable.starts_with(root + name + "/") && path.size() > depth) {
            return depth;
        }
    }
    return 0;
}

bool isBelow(std::string_view path, const Components& folder) {
    return path.starts_with(folderOf(folder, folder.size()));
}

/// Number of leading components of the private folder, judged by the executable's location; 0 if
/// none.
std::size_t privateDepth(const Components& path, const ProcessDetails& process,
                         std::string_view home, const ApplicationIdentity& identity) {
    const std::string& executable = *process.executable;
    const Components mount = componentsOf(process.environment.appDir);
    if (!mount.empty() && mount.back().starts_with(".mount_") && isBelow(executable, mount)) {
        return mount.size();
    }
    if (const auto snap = snapOfCgroup(process.cgroup)) {
        return snapDepth(path, executable, *snap);
    }
    const Components homePath = componentsOf(home);
    if (!homePath.empty() && isBelow(executable, homePath)) {
        return depthBelowHome(path, homePath.size(), strictNames(path.back(), identity));
    }
    if (path.front() == "opt") {
        return deepestNamed(path, 1, systemNames(path.back(), identity),
                            [](std::size_t) { return false; });
    }
    return path.front() == "usr" ? depthBelowUsr(path, systemNames(path.back(), identity)) : 0;
}

/// Whether the path is normalized, so that prefixes can be compared.
bool isPlainPath(std::string_view path) {
    if (path.size() < 2 || path.front() != '/' || path.back() == '/') {
        return false;
    }
    const Components components = componentsOf(path);
    const bool hasDots = std::ranges::any_of(
        components, [](std::string_view name) { return name == "." || name == ".."; });
    return !hasDots && folderOf(components, components.size()) == std::string(path) + "/";
}

} // namespace

std::optional<std::string> privateFolder(const ProcessDetails& process,
                                         const ApplicationIdentity& identity, std::string_view home,
                                         std::span<const std::string> otherExecutables) {
    if (process.flatpak) {
        return flatpakFolder(*process.flatpak);
    }
    // In every flatpak the executables are in /app.
    if (!process.executable || process.isExecutableElsewhere || process.runsScript ||
        isInterpreter(*process.executable) || process.executable->starts_with("/app/")) {
        return std::nullopt;
    }
    const Components path = componentsOf(*process.executable);
    if (path.size() < 2 || !isPlainPath(*process.executable)) {
        return std::nullopt;
    }
    const std::size_t depth = privateDepth(path, process, home, identity);
    if (depth == 0) {
        return std::nullopt;
    }
    const auto holdsAnother = [&](const std::string& folder) {
        return std::ranges::any_of(otherExecutables, [&](const std::string& other) {
            return !belongsToAnotherProgram(folder, other);
        });
    };
    std::string folder = folderOf(path, depth);
    if (!holdsAnother(folder)) {
        return folder;
    }
    std::string own = folderOf(path, path.size() - 1);
    const std::string_view last = path[path.size() - 2];
    if (!isShared(last) && !isLibrary(last) && !holdsAnother(own)) {
        return own;
    }
    return std::nullopt;
}

std::string bundlePath(const ProcessDetails& process, const ApplicationIdentity& identity,
                       std::string_view home, std::span<const std::string> otherExecutables) {
    if (auto folder = privateFolder(process, identity, home, otherExecutables)) {
        return *std::move(folder);
    }
    // Files with a trailing slash contain nothing. The arguments are not checked, so they are not
    // used.
    for (const std::string& file : {identity.entryPath.string(), process.commandPath.value_or(""),
                                    process.executable.value_or("")}) {
        if (isPlainPath(file)) {
            return file + "/";
        }
    }
    return "/proc/" + std::to_string(process.pid) + "/stat/";
}

bool belongsToAnotherProgram(std::string_view privateFolder, std::string_view executable) {
    return !executable.starts_with(privateFolder) ||
           libraryFolderDepth(componentsOf(executable), componentsOf(privateFolder).size()) != 0;
}

} // namespace calmora
