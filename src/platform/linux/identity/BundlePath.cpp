#include "platform/linux/identity/BundlePath.h"

#include "platform/linux/identity/ApplicationIdentifier.h"
#include "platform/linux/xdg/ExecKey.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>
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

/// Letters and digits alone, in lower case: "KeePassXC" and "keepass-xc" are one name.
std::string normalized(std::string_view name) {
    std::string plain;
    for (const unsigned char letter : name) {
        if (std::isalnum(letter) != 0 || letter >= 0x80) {
            plain += static_cast<char>(std::tolower(letter));
        }
    }
    return plain;
}

/// Folders whose content belongs to many programs, whatever they are called.
bool isShared(std::string_view folder) {
    constexpr std::array names = {
        std::string_view("systemd"),      std::string_view("xorg"),
        std::string_view("jvm"),          std::string_view("gvfs"),
        std::string_view("xfce4"),        std::string_view("lxqt"),
        std::string_view("kf5"),          std::string_view("kf6"),
        std::string_view("libexec"),      std::string_view("gcc"),
        std::string_view("dbus-1.0"),     std::string_view("polkit-1"),
        std::string_view("gnome-shell"),  std::string_view("at-spi2-core"),
        std::string_view("git-core"),     std::string_view("openssh"),
        std::string_view("local"),        std::string_view("bin"),
        std::string_view("sbin"),         std::string_view("lib"),
        std::string_view("lib64"),        std::string_view("share"),
        std::string_view("applications"), std::string_view("games"),
        std::string_view("pkg"),          std::string_view("homebrew")};
    if (std::ranges::find(names, folder) != names.end()) {
        return true;
    }
    constexpr std::array prefixes = {
        std::string_view("qt"),    std::string_view("python"),    std::string_view("perl"),
        std::string_view("ruby"),  std::string_view("node"),      std::string_view("php"),
        std::string_view("java"),  std::string_view("wine"),      std::string_view("electron"),
        std::string_view("mono"),  std::string_view("dotnet"),    std::string_view("llvm"),
        std::string_view("conda"), std::string_view("miniconda"), std::string_view("anaconda")};
    return std::ranges::any_of(prefixes,
                               [&](std::string_view prefix) { return folder.starts_with(prefix); });
}

/// Whether a folder is named like the application.
class NameTest {
  public:
    NameTest(std::string_view executable, const ApplicationIdentity& identity) {
        add(executable);
        add(programKey(executable));
        add(identity.execKey);
        if (identity.desktopId) {
            add(*identity.desktopId);
            add(std::string_view(*identity.desktopId).substr(identity.desktopId->rfind('.') + 1));
        }
    }

    bool operator()(std::string_view folder) const {
        return std::ranges::find(names_, normalized(folder)) != names_.end();
    }

  private:
    void add(std::string_view name) {
        if (std::string plain = normalized(name); !plain.empty()) {
            names_.push_back(std::move(plain));
        }
    }

    std::vector<std::string> names_;
};

/// Number of leading components that make up the private folder, by where the executable lies;
/// 0 for none.
std::size_t privateDepth(const Components& path, const ProcessDetails& process,
                         std::string_view home, const NameTest& isNamedLikeIt) {
    const std::size_t folders = path.size() - 1; // The last one is the executable.
    const std::string& executable = *process.executable;
    const std::string& appDir = process.environment.appDir;
    const Components mount = componentsOf(appDir);
    if (!mount.empty() && mount.back().starts_with(".mount_") &&
        executable.starts_with(folderOf(mount, mount.size()))) {
        return mount.size();
    }
    if (const auto snap = snapOfCgroup(process.cgroup)) {
        const std::string name = snap->substr(0, snap->find('_'));
        for (const std::string_view root : {"/snap/", "/var/lib/snapd/snap/"}) {
            const std::size_t depth = componentsOf(root).size() + 2;
            if (executable.starts_with(std::string(root) + name + "/") && folders >= depth) {
                return depth;
            }
        }
        return 0;
    }
    const Components homePath = componentsOf(home);
    if (!homePath.empty() && executable.starts_with(folderOf(homePath, homePath.size()))) {
        // The tools of ~/.cargo/bin are not one program, though one of them is called cargo.
        const auto isToolbox = [&](std::size_t depth) {
            return path[depth - 1].starts_with('.') && path[depth] == "bin";
        };
        std::size_t depth = folders;
        while (depth > homePath.size() &&
               (!isNamedLikeIt(path[depth - 1]) || isShared(path[depth - 1]) || isToolbox(depth))) {
            --depth;
        }
        return depth > homePath.size() ? depth : 0;
    }
    if (path.front() == "opt") {
        std::size_t depth = folders;
        while (depth > 0 && (path[depth - 1] == "bin" || path[depth - 1] == "lib" ||
                             path[depth - 1] == "program")) {
            --depth;
        }
        if (depth < 2 || isShared(path[depth - 1])) {
            return 0;
        }
        // The folder of a vendor may hold several programs side by side in its bin.
        const bool isVendors = depth == 2 && depth < folders && !isNamedLikeIt(path[1]);
        return isVendors ? 0 : depth;
    }
    if (path.front() == "usr") {
        std::size_t at = 1;
        if (at < folders && path[at] == "local") {
            ++at;
        }
        constexpr std::array roots = {std::string_view("lib"), std::string_view("lib64"),
                                      std::string_view("libexec"), std::string_view("share"),
                                      std::string_view("games")};
        if (at >= folders || std::ranges::find(roots, path[at]) == roots.end()) {
            return 0;
        }
        ++at;
        if (at < folders && path[at].find("-linux-") != std::string_view::npos) {
            ++at;
        }
        return at < folders && !isShared(path[at]) && isNamedLikeIt(path[at]) ? at + 1 : 0;
    }
    return 0;
}

} // namespace

std::optional<std::string> privateFolder(const ProcessDetails& process,
                                         const ApplicationIdentity& identity, std::string_view home,
                                         std::span<const std::string> otherExecutables) {
    // Inside of every flatpak the executables lie in the same /app.
    if (!process.executable || process.flatpak || isInterpreter(*process.executable) ||
        process.executable->starts_with("/app/")) {
        return std::nullopt;
    }
    const std::string& executable = *process.executable;
    const Components path = componentsOf(executable);
    if (path.size() < 2) {
        return std::nullopt;
    }
    const std::size_t depth = privateDepth(path, process, home, NameTest(path.back(), identity));
    if (depth == 0) {
        return std::nullopt;
    }
    const auto holdsAnother = [&](const std::string& folder) {
        return std::ranges::any_of(otherExecutables, [&](const std::string& other) {
            return other != executable && other.starts_with(folder);
        });
    };
    std::string folder = folderOf(path, depth);
    if (!holdsAnother(folder)) {
        return folder;
    }
    std::string own = folderOf(path, path.size() - 1);
    if (!isShared(path[path.size() - 2]) && !holdsAnother(own)) {
        return own;
    }
    return std::nullopt;
}

std::string bundlePath(const ProcessDetails& process, const ApplicationIdentity& identity,
                       std::string_view home, std::span<const std::string> otherExecutables) {
    if (auto folder = privateFolder(process, identity, home, otherExecutables)) {
        return *std::move(folder);
    }
    // Files with a closing slash: nothing can lie below them.
    if (!identity.entryPath.empty()) {
        return identity.entryPath.string() + "/";
    }
    if (const std::string script = scriptOf(process.commandLine); script.starts_with('/')) {
        return script + "/";
    }
    if (process.executable) {
        return *process.executable + "/";
    }
    return "/proc/" + std::to_string(process.pid) + "/stat/";
}

} // namespace calmora
