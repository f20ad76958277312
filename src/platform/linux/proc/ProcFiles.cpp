// SPDX-License-Identifier: MIT
#include "platform/linux/proc/ProcFiles.h"

#include "platform/linux/xdg/KeyFile.h"
#include "support/TextHelpers.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstddef>

namespace calmora {
namespace {

/// Removes and returns the next word, separated by blanks, tabs or newlines.
std::string_view takeWord(std::string_view& text) {
    const std::size_t start = text.find_first_not_of(" \t\n");
    if (start == std::string_view::npos) {
        text = {};
        return {};
    }
    const std::size_t end = text.find_first_of(" \t\n", start);
    const std::string_view word = text.substr(start, end - start);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end);
    return word;
}

template <typename Number>
std::optional<Number> number(std::string_view word) {
    Number value{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size()) {
        return std::nullopt;
    }
    return value;
}

/// The rest of the text when it starts with a prefix.
std::optional<std::string_view> after(std::string_view text, std::string_view prefix) {
    if (!text.starts_with(prefix)) {
        return std::nullopt;
    }
    return text.substr(prefix.size());
}

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

std::optional<ProcessStat> parseStat(std::string_view text) {
    const std::size_t open = text.find('(');
    const std::size_t close = text.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
        return std::nullopt;
    }
    ProcessStat stat;
    stat.comm = text.substr(open + 1, close - open - 1);
    text.remove_prefix(close + 1);

    // Numbered as in the man page; the name is field 2.
    constexpr int stateField = 3;
    constexpr int parentField = 4;
    constexpr int flagsField = 9;
    constexpr int threadsField = 20;
    constexpr int startTimeField = 22;
    constexpr std::uint64_t kernelThreadFlag = 0x00200000; // PF_KTHREAD
    for (int field = stateField; field <= startTimeField; ++field) {
        const std::string_view word = takeWord(text);
        if (word.empty()) {
            return std::nullopt;
        }
        if (field == stateField) {
            stat.state = word.front();
        } else if (field == parentField) {
            stat.parent = number<ProcessId>(word).value_or(0);
        } else if (field == flagsField) {
            stat.isKernelThread = (number<std::uint64_t>(word).value_or(0) & kernelThreadFlag) != 0;
        } else if (field == threadsField) {
            stat.threads = number<std::int64_t>(word).value_or(0);
        } else if (field == startTimeField) {
            const auto startTime = number<std::uint64_t>(word);
            if (!startTime) {
                return std::nullopt;
            }
            stat.startTime = *startTime;
        }
    }
    return stat;
}

std::optional<ProcessStatus> parseStatus(std::string_view text) {
    ProcessStatus status;
    bool hasUser = false;
    const auto kibibytes = [](std::string_view rest) {
        return number<std::uint64_t>(takeWord(rest)).value_or(0) * 1024;
    };
    forEachPiece(text, '\n', [&](std::string_view line) {
        if (auto ids = after(line, "Uid:")) {
            const auto real = number<std::uint32_t>(takeWord(*ids));
            const auto effective = number<std::uint32_t>(takeWord(*ids));
            hasUser = real && effective;
            status.realUser = real.value_or(0);
        } else if (const auto anonymous = after(line, "RssAnon:")) {
            status.rssAnon = kibibytes(*anonymous);
        } else if (const auto swapped = after(line, "VmSwap:")) {
            status.vmSwap = kibibytes(*swapped);
        } else if (auto spaces = after(line, "NSpid:")) {
            while (const auto id = number<ProcessId>(takeWord(*spaces))) {
                status.namespaceIds.push_back(*id);
            }
        }
    });
    if (!hasUser) {
        return std::nullopt;
    }
    return status;
}

std::optional<std::uint64_t> parseStatmAnonymousPages(std::string_view text) {
    const auto size = number<std::uint64_t>(takeWord(text));
    const auto resident = number<std::uint64_t>(takeWord(text));
    const auto shared = number<std::uint64_t>(takeWord(text));
    if (size.value_or(0) == 0 || !resident || !shared) {
        return std::nullopt;
    }
    return *resident > *shared ? *resident - *shared : 0;
}

std::optional<TaskTurnover> parseLoadavg(std::string_view text) {
    for (int average = 0; average < 3; ++average) {
        takeWord(text);
    }
    const std::string_view tasks = takeWord(text);
    const std::size_t slash = tasks.find('/');
    const auto count = slash == std::string_view::npos
                           ? std::nullopt
                           : number<std::uint64_t>(tasks.substr(slash + 1));
    const auto last = number<ProcessId>(takeWord(text));
    if (count.value_or(0) == 0 || last.value_or(0) < 1) {
        return std::nullopt;
    }
    return TaskTurnover{*last, *count};
}

std::string parseCgroup(std::string_view text) {
    std::string unified;
    std::string systemd;
    forEachPiece(text, '\n', [&](std::string_view line) {
        if (const auto path = after(line, "0::")) {
            unified = *path;
        } else if (const std::size_t at = line.find(":name=systemd:");
                   at != std::string_view::npos) {
            systemd = line.substr(at + std::string_view(":name=systemd:").size());
        }
    });
    // On a machine with both hierarchies the unified one may be unused.
    return unified.size() > 1 || systemd.empty() ? unified : systemd;
}

std::vector<std::string> parseCommandLine(std::string_view text) {
    std::vector<std::string> words;
    // A process that overwrote its arguments pads them with NULs.
    text = text.substr(0, text.find_last_not_of('\0') + 1);
    forEachPiece(text, '\0', [&](std::string_view word) { words.emplace_back(word); });
    return words;
}

LaunchEnvironment parseLaunchEnvironment(std::string_view text) {
    LaunchEnvironment environment;
    forEachPiece(text, '\0', [&](std::string_view variable) {
        if (const auto file = after(variable, "GIO_LAUNCHED_DESKTOP_FILE=")) {
            environment.launchedDesktopFile = *file;
        } else if (const auto pid = after(variable, "GIO_LAUNCHED_DESKTOP_FILE_PID=")) {
            environment.launchedDesktopFilePid = number<ProcessId>(*pid).value_or(0);
        } else if (const auto hint = after(variable, "BAMF_DESKTOP_FILE_HINT=")) {
            environment.bamfDesktopFileHint = *hint;
        } else if (const auto folder = after(variable, "APPDIR=")) {
            environment.appDir = *folder;
        } else if (const auto image = after(variable, "APPIMAGE=")) {
            environment.appImage = *image;
        } else if (const auto working = after(variable, "PWD=")) {
            environment.shellFolder = *working;
        } else if (const auto classes = after(variable, "CLASSPATH=")) {
            environment.classPath = *classes;
        } else if (const auto prefix = after(variable, "WINEPREFIX=")) {
            environment.winePrefix = *prefix;
        }
    });
    return environment;
}

std::string displayOf(std::string_view variable) {
    if (variable.starts_with("unix:")) {
        variable.remove_prefix(std::string_view("unix").size());
    }
    const auto colon = variable.rfind(':');
    return std::string(
        colon == std::string_view::npos ? variable : variable.substr(0, variable.find('.', colon)));
}

std::optional<FlatpakInfo> parseFlatpakInfo(std::string_view text) {
    FlatpakInfo info;
    walkKeyFile(text, [&](const KeyFileLine& line) {
        // Runtimes that run without an application have a group of their own.
        if (line.group == "Application" && line.key == "name") {
            info.applicationId = unescapedValue(line.value);
        } else if (line.group == "Instance" && line.key == "instance-id") {
            info.instanceId = unescapedValue(line.value);
        }
        return true;
    });
    const bool isName = std::ranges::all_of(info.applicationId, [](unsigned char letter) {
        return std::isalnum(letter) != 0 || letter == '.' || letter == '-' || letter == '_';
    });
    if (info.applicationId.empty() || !isName) {
        return std::nullopt;
    }
    return info;
}

std::optional<std::string> flatpakFolder(const FlatpakInfo& sandbox) {
    if (sandbox.instanceId.empty()) {
        return std::nullopt;
    }
    return "/.flatpak/" + sandbox.applicationId + "/" + sandbox.instanceId + "/app/";
}

std::string_view withoutDeletedMark(std::string_view path) {
    constexpr std::string_view mark = " (deleted)";
    if (path.ends_with(mark)) {
        path.remove_suffix(mark.size());
    }
    return path;
}

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
