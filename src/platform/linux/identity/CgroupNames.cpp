#include "platform/linux/identity/CgroupNames.h"
#include "support/TextHelpers.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstddef>

namespace calmora {

namespace {

/// Undoes systemd's escaping of unit names: \x2d is a dash.
std::string unescapedUnit(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        unsigned code = 0;
        constexpr std::size_t length = 4;
        const std::string_view escape = text.substr(at, length);
        const bool isEscape =
            escape.size() == length && escape.starts_with("\\x") &&
            std::from_chars(escape.data() + 2, escape.data() + length, code, 16).ptr ==
                escape.data() + length;
        if (isEscape) {
            plain += static_cast<char>(code);
            at += length - 1;
        } else {
            plain += text[at];
        }
    }
    return plain;
}

} // namespace

std::vector<std::string> desktopIdsOfCgroup(std::string_view cgroup) {
    std::string_view unit = baseName(cgroup);
    std::vector<std::string> ids;
    const auto addWithAndWithoutLauncher = [&](std::string_view name) {
        ids.push_back(unescapedUnit(name));
        // Dashes in an id are escaped, so the first plain one ends the launcher's name.
        const std::size_t dash = name.find('-');
        if (dash != std::string_view::npos && dash + 1 < name.size()) {
            ids.push_back(unescapedUnit(name.substr(dash + 1)));
        }
    };
    constexpr std::string_view scope = ".scope";
    constexpr std::string_view service = ".service";
    const bool isScope = unit.ends_with(scope);
    if (!unit.starts_with("app-") || (!isScope && !unit.ends_with(service))) {
        return ids;
    }
    unit.remove_prefix(std::string_view("app-").size());
    unit.remove_suffix(isScope ? scope.size() : service.size());
    const std::size_t cut = isScope ? unit.rfind('-') : unit.rfind('@');
    if (cut != std::string_view::npos) {
        addWithAndWithoutLauncher(unit.substr(0, cut));
    } else if (!isScope) {
        addWithAndWithoutLauncher(unit);
    }
    std::erase(ids, std::string());
    return ids;
}

std::optional<std::string> snapOfCgroup(std::string_view cgroup) {
    std::string_view leaf = baseName(cgroup);
    constexpr std::string_view prefix = "snap.";
    if (!leaf.starts_with(prefix)) {
        return std::nullopt;
    }
    leaf.remove_prefix(prefix.size());
    const std::size_t dot = leaf.find('.');
    if (dot == std::string_view::npos || dot == 0) {
        return std::nullopt;
    }
    const std::string_view name = leaf.substr(0, dot);
    std::string_view application = leaf.substr(dot + 1);
    application = application.substr(0, application.find('.'));
    // The scope of one start carries a UUID.
    constexpr std::size_t uuidLength = 36;
    if (application.size() > uuidLength + 1 &&
        application[application.size() - uuidLength - 1] == '-' &&
        std::ranges::all_of(
            application.substr(application.size() - uuidLength),
            [](unsigned char letter) { return std::isxdigit(letter) != 0 || letter == '-'; })) {
        application.remove_suffix(uuidLength + 1);
    }
    if (application.empty() || application == "hook") {
        return std::nullopt;
    }
    return std::string(name) + "_" + std::string(application);
}

} // namespace calmora
