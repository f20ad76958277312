#include "platform/linux/xdg/ExecKey.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace calmora {

namespace {

std::string_view baseName(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

/// The name without a version at its end: python3.11 is python.
std::string_view withoutVersion(std::string_view name) {
    const std::size_t last = name.find_last_not_of("0123456789.-");
    return name.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

template <std::size_t count>
bool isAnyOf(std::string_view name, const std::array<std::string_view, count>& names) {
    return std::ranges::find(names, name) != names.end();
}

constexpr std::array<std::string_view, 8> shells = {"sh",  "bash", "dash", "zsh",
                                                    "ksh", "mksh", "fish", "busybox"};

constexpr std::array<std::string_view, 27> interpreters = {"python",      "pythonw",
                                                           "pypy",        "perl",
                                                           "ruby",        "node",
                                                           "nodejs",      "deno",
                                                           "bun",         "gjs",
                                                           "gjs-console", "seed",
                                                           "lua",         "luajit",
                                                           "tclsh",       "wish",
                                                           "php",         "mono",
                                                           "mono-sgen",   "dotnet",
                                                           "java",        "javaw",
                                                           "wine",        "wine-preloader",
                                                           "wine64",      "wine64-preloader",
                                                           "electron"};

/// Programs that start another one, which is the application.
constexpr std::array<std::string_view, 26> wrappers = {
    "env",         "nice",        "ionice",      "nohup",
    "setsid",      "exec",        "time",        "stdbuf",
    "sudo",        "pkexec",      "gksu",        "gksudo",
    "kdesu",       "kdesudo",     "dbus-launch", "dbus-run-session",
    "systemd-run", "gamemoderun", "mangohud",    "optirun",
    "primusrun",   "prime-run",   "firejail",    "padsp",
    "pasuspender", "ld.so"};

/// Programs that start an application that their command line names in a way of its own.
constexpr std::array<std::string_view, 6> launchers = {"flatpak",  "snap", "gtk-launch",
                                                       "xdg-open", "gio",  "steam-runtime"};

/// Options that take the following word as their value, by program.
bool takesValue(std::string_view program, std::string_view option) {
    if (program == "env") {
        return option == "-u" || option == "-C" || option == "-S";
    }
    if (program == "nice" || program == "ionice") {
        return option == "-n" || option == "-c" || option == "-p";
    }
    if (withoutVersion(program) == "python") {
        return option == "-W" || option == "-X";
    }
    if (program == "java") {
        return option == "-cp" || option == "-classpath" || option == "--class-path" ||
               option == "-p" || option == "--module-path" || option == "--add-opens" ||
               option == "--add-exports" || option == "--add-modules";
    }
    return false;
}

bool isAssignment(std::string_view word) {
    const std::size_t equals = word.find('=');
    if (equals == std::string_view::npos || equals == 0) {
        return false;
    }
    return std::ranges::all_of(word.substr(0, equals), [](unsigned char letter) {
        return std::isalnum(letter) != 0 || letter == '_';
    });
}

bool isWrapper(std::string_view word) {
    return isAnyOf(baseName(word), wrappers);
}

/// What a command runs.
struct Command {
    /// The program, script, jar or module as it is written; empty for none.
    std::string_view target;
    /// The target is what an interpreter runs.
    bool isInterpreted = false;
};

Command commandOf(std::span<const std::string> words) {
    Command command;
    std::string_view starter;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const std::string_view word = words[at];
        if (word.empty() || isAssignment(word)) {
            continue;
        }
        if (word.front() == '-' && !starter.empty()) {
            const bool hasNext = at + 1 < words.size();
            if (isShell(starter) && word.size() > 1 && word[1] != '-' &&
                word.find('c') != std::string_view::npos) {
                return {}; // A command string names no program.
            }
            if (starter == "java" && word == "-jar" && hasNext) {
                return {words[at + 1], true};
            }
            if (withoutVersion(starter) == "python" && word == "-m" && hasNext) {
                return {words[at + 1], true};
            }
            if (command.isInterpreted && (word == "-c" || word == "-e")) {
                return {};
            }
            if (takesValue(starter, word)) {
                ++at;
            }
            continue;
        }
        const std::string_view name = baseName(word);
        if (isAnyOf(name, launchers)) {
            return {};
        }
        if (command.isInterpreted && starter == "java") {
            return {}; // A class of some class path.
        }
        if (isWrapper(word) || (!command.isInterpreted && isInterpreter(word))) {
            // A login shell's name begins with a dash.
            starter = name;
            command.isInterpreted = command.isInterpreted || isInterpreter(word);
            continue;
        }
        command.target = word;
        return command;
    }
    return {};
}

std::string keyOf(std::string_view path) {
    std::string_view name = baseName(path);
    for (const std::string_view ending : {".py", ".pl", ".sh", ".bin", ".jar"}) {
        if (name.size() > ending.size() && name.ends_with(ending)) {
            name.remove_suffix(ending.size());
            break;
        }
    }
    return std::string(name);
}

} // namespace

std::string execKey(std::span<const std::string> words) {
    return keyOf(commandOf(words).target);
}

std::string programKey(std::string_view path) {
    return isInterpreter(path) || isWrapper(path) ? std::string() : keyOf(path);
}

std::string scriptOf(std::span<const std::string> words) {
    const Command command = commandOf(words);
    return command.isInterpreted ? std::string(command.target) : std::string();
}

bool isInterpreter(std::string_view path) {
    const std::string_view name = baseName(path);
    return isShell(path) || isAnyOf(name, interpreters) ||
           isAnyOf(withoutVersion(name), interpreters);
}

bool isShell(std::string_view path) {
    std::string_view name = baseName(path);
    if (name.starts_with('-')) {
        name.remove_prefix(1); // A login shell.
    }
    return isAnyOf(name, shells);
}

} // namespace calmora
