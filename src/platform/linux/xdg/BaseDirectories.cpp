// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/BaseDirectories.h"

#include "support/TextHelpers.h"

#include <algorithm>
#include <cstdlib>

namespace calmora {

namespace {

std::string valueOf(const EnvironmentReader& environment, const char* name) {
    const char* value = environment(name);
    return value ? value : "";
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    forEachPiece(text, separator, [&](std::string_view part) {
        if (!part.empty()) {
            parts.emplace_back(part);
        }
    });
    return parts;
}

void addFolder(std::vector<std::filesystem::path>& folders, std::string folder) {
    while (folder.size() > 1 && folder.ends_with('/')) {
        folder.pop_back();
    }
    if (folder.starts_with('/') &&
        std::find(folders.begin(), folders.end(), folder) == folders.end()) {
        folders.emplace_back(std::move(folder));
    }
}

std::vector<std::filesystem::path> folderList(const std::string& value, const char* fallback) {
    std::vector<std::filesystem::path> folders;
    for (std::string& folder : split(value.empty() ? fallback : std::string_view(value), ':')) {
        addFolder(folders, std::move(folder));
    }
    return folders;
}

} // namespace

BaseDirectories BaseDirectories::fromEnvironment(const EnvironmentReader& environment) {
    BaseDirectories directories;
    const auto absolute = [&](const char* name) {
        const std::string value = valueOf(environment, name);
        return value.starts_with('/') ? std::filesystem::path(value) : std::filesystem::path();
    };
    const auto belowHome = [&](const char* name, const char* fallback) {
        std::filesystem::path folder = absolute(name);
        if (folder.empty() && !directories.home.empty()) {
            folder = directories.home / fallback;
        }
        return folder;
    };
    directories.home = absolute("HOME");
    directories.configHome = belowHome("XDG_CONFIG_HOME", ".config");
    directories.dataHome = belowHome("XDG_DATA_HOME", ".local/share");
    directories.configDirs = folderList(valueOf(environment, "XDG_CONFIG_DIRS"), "/etc/xdg");
    directories.dataDirs =
        folderList(valueOf(environment, "XDG_DATA_DIRS"), "/usr/local/share:/usr/share");
    if (!directories.dataHome.empty()) {
        addFolder(directories.dataDirs, directories.dataHome / "flatpak/exports/share");
    }
    addFolder(directories.dataDirs, "/var/lib/flatpak/exports/share");
    addFolder(directories.dataDirs, "/var/lib/snapd/desktop");
    directories.executableDirs =
        folderList(valueOf(environment, "PATH"), "/usr/local/bin:/usr/bin:/bin");
    directories.currentDesktops =
        split(loweredAscii(valueOf(environment, "XDG_CURRENT_DESKTOP")), ':');
    return directories;
}

BaseDirectories BaseDirectories::fromEnvironment() {
    return fromEnvironment(&std::getenv);
}

std::vector<std::string> localeCandidates(std::string_view locale) {
    const std::size_t at = locale.find('@');
    const std::string modifier(at == std::string_view::npos ? "" : locale.substr(at));
    locale = locale.substr(0, at);
    locale = locale.substr(0, locale.find('.'));
    if (locale.empty() || locale == "C" || locale == "POSIX") {
        return {};
    }
    const std::string languageAndCountry(locale);
    const std::string language(locale.substr(0, locale.find('_')));
    std::vector<std::string> candidates;
    for (const std::string& candidate :
         {languageAndCountry + modifier, languageAndCountry, language + modifier, language}) {
        if (std::ranges::find(candidates, candidate) == candidates.end()) {
            candidates.push_back(candidate);
        }
    }
    return candidates;
}

std::vector<std::string> messageLocales(const EnvironmentReader& environment) {
    std::string locale = valueOf(environment, "LC_ALL");
    for (const char* name : {"LC_MESSAGES", "LANG"}) {
        if (locale.empty()) {
            locale = valueOf(environment, name);
        }
    }
    if (locale.empty() || locale == "C" || locale == "POSIX") {
        return {}; // The plain locale is not translated, whatever LANGUAGE says; C.UTF-8 is.
    }
    const std::vector<std::string> candidates = localeCandidates(locale);
    std::vector<std::string> all;
    for (const std::string& language : split(valueOf(environment, "LANGUAGE"), ':')) {
        const auto more = localeCandidates(language);
        if (more.empty()) {
            break; // LANGUAGE=C:de wants no translation.
        }
        all.insert(all.end(), more.begin(), more.end());
    }
    all.insert(all.end(), candidates.begin(), candidates.end());
    return all;
}

} // namespace calmora
