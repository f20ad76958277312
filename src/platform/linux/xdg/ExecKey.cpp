// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/ExecKey.h"

#include "support/TextHelpers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>

namespace calmora {

namespace {

template <std::size_t count>
bool isAnyOf(std::string_view name, const std::array<std::string_view, count>& names) {
    return std::ranges::find(names, name) != names.end();
}

/// The same for names in order.
template <std::size_t count>
bool isIn(const std::array<std::string_view, count>& names, std::string_view name) {
    return std::ranges::binary_search(names, name);
}

constexpr auto shells = std::to_array<std::string_view>(
    {"ash", "bash", "busybox", "csh", "dash", "fish", "ksh", "lksh", "mksh", "nu", "posh", "pwsh",
     "rbash", "sh", "tcsh", "yash", "zsh"});

// clang-format off
/// Without versions. Includes the dynamic loader, which runs a given program.
constexpr auto interpreters = std::to_array<std::string_view>({
    "FEXInterpreter", "R", "Rscript", "awk", "beam.smp", "box64", "box86", "bun", "cjs",
    "cjs-console", "clisp", "deno", "dotnet", "ecl", "electron", "expect", "gawk", "ghc",
    "ghci", "gjs", "gjs-console", "gracket", "guile", "java", "javaw", "jruby", "julia",
    "jython", "ld-linux-aarch64.so", "ld-linux-x86-64.so", "ld-linux.so", "ld.so", "love",
    "lua", "luajit", "mono", "mono-sgen", "node", "nodejs", "nw", "ocaml", "ocamlrun",
    "octave-cli", "perl", "php", "pypy", "python", "pythonw", "qml",
    "qmlscene", "racket", "ruby", "runghc", "sbcl", "seed", "swipl", "tclsh",
    "texlua", "wine", "wine-devel", "wine-preloader", "wine-stable", "wine-staging", "wine64",
    "wine64-preloader", "wish"});

/// Programs that start another one, which is the application.
constexpr auto wrappers = std::to_array<std::string_view>({
    "dbus-launch", "dbus-run-session", "env", "exec", "firejail", "gamemoderun", "gksu",
    "gksudo", "ionice", "kdesu", "kdesudo", "mangohud", "nice", "nohup", "optirun", "padsp",
    "pasuspender", "pkexec", "prime-run", "primusrun", "setsid", "stdbuf", "sudo",
    "systemd-run", "time"});
// clang-format on

/// Launchers with their own syntax for naming an application.
constexpr auto launchers = std::to_array<std::string_view>(
    {"flatpak", "gio", "gtk-launch", "snap", "steam-runtime", "xdg-open"});

static_assert(std::ranges::is_sorted(shells) && std::ranges::is_sorted(interpreters) &&
              std::ranges::is_sorted(wrappers) && std::ranges::is_sorted(launchers));

/// Options with a separate value, by program without version.
bool takesValue(std::string_view program, std::string_view option) {
    struct Options {
        std::string_view program;
        std::array<std::string_view, 8> options;
    };

    static constexpr auto table = std::to_array<Options>({
        {"env", {"-u", "-C", "-S"}},
        {"nice", {"-n"}},
        {"ionice", {"-n", "-c", "-p"}},
        {"python", {"-W", "-X"}},
        {"perl", {"-I"}},
        {"ruby", {"-I", "-r", "-C", "-E"}},
        {"node", {"-r", "--require", "--import", "--loader", "--experimental-loader", "-C"}},
        {"electron", {"-r", "--require"}},
        {"gjs", {"-I", "-C"}},
        {"gjs-console", {"-I", "-C"}},
        {"qml", {"-I", "-P", "-c", "--config", "-a", "--apptype", "--style"}},
        {"qmlscene", {"-I", "-P", "--scaling"}},
        {"lua", {"-l"}},
        {"php", {"-d", "-c", "-z"}},
        {"guile", {"-L", "-C", "-l"}},
        {"julia", {"-J", "-L", "-t", "-p", "-C"}},
    });
    const auto row = std::ranges::find(table, program, &Options::program);
    return row != table.end() && isAnyOf(option, row->options);
}

/// Whether code follows the option, so that no file is run.
bool takesCode(std::string_view program, std::string_view option) {
    const bool checksOnly = program == "perl" || program == "ruby" || program == "node";
    return option == "-e" || option == "--eval" || (option == "-c" && !checksOnly) ||
           (option == "-E" && program == "perl");
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

bool isCommandString(std::string_view shell, std::string_view option) {
    return isShell(shell) && option.size() > 1 && option[1] != '-' &&
           option.find('c') != std::string_view::npos;
}

/// deno run main.ts
bool isSubcommand(std::string_view interpreter, std::string_view word) {
    const std::string_view family = interpreterFamily(interpreter);
    return (word == "run" || word == "exec") &&
           (family == "deno" || family == "bun" || family == "dotnet");
}

/// Interpreters that programs bundle under the interpreter's name.
bool isEngine(std::string_view interpreter) {
    const std::string_view family = interpreterFamily(interpreter);
    return family == "electron" || family == "nw" || family == "love";
}

/// Programs that load binaries, even interpreters.
bool isLoader(std::string_view interpreter) {
    const std::string_view name = baseName(interpreter);
    return isWine(interpreter) || name.starts_with("ld") || name.starts_with("box") ||
           name == "FEXInterpreter";
}

/// The words of a command after its interpreter.
class InterpreterArguments {
  public:
    InterpreterArguments(std::string_view interpreter, std::span<const std::string> words)
        : family_(interpreterFamily(interpreter)), words_(words) {}

    /// Whether the option at `at` determines what is run; sets the target of `command`. Otherwise
    /// moves `at` to the option's last word.
    bool tells(std::size_t& at, Command& command) const {
        const std::string_view word = words_[at];
        const bool hasNext = at + 1 < words_.size();
        if (isCommandString(family_, word)) {
            return true;
        }
        if (family_ == "python" && word == "-m" && hasNext) {
            command.target = words_[at + 1];
            command.isModule = true;
            return true;
        }
        constexpr std::string_view fileOption = "--file=";
        if (family_ == "R" && word.starts_with(fileOption)) {
            command.target = word.substr(fileOption.size());
            return true;
        }
        if (takesValue(family_, word)) {
            ++at;
        } else if (isInterpreter(family_) && !isShell(family_) && takesCode(family_, word)) {
            return true;
        }
        return false;
    }

  private:
    std::string_view family_;
    std::span<const std::string> words_;
};

} // namespace

Command commandOf(std::span<const std::string> words) {
    Command command;
    std::string_view starter; // The last interpreter or wrapper.
    for (std::size_t at = 0; at < words.size(); ++at) {
        const std::string_view word = words[at];
        if (word.empty() || (command.interpreter.empty() && isAssignment(word))) {
            continue;
        }
        if (word.front() == '-' && !starter.empty()) {
            if (InterpreterArguments(starter, words).tells(at, command)) {
                return command;
            }
            continue;
        }
        if (isIn(launchers, baseName(word))) {
            return {};
        }
        if (isSubcommand(starter, word)) {
            continue;
        }
        // A script may have an interpreter's name, but a loader runs interpreters.
        const bool mayFollow = command.interpreter.empty() || isLoader(command.interpreter);
        if (mayFollow && (isWrapper(word) || isInterpreter(word))) {
            starter = word;
            command.interpreter = isInterpreter(word) ? std::string(word) : command.interpreter;
            if (isJava(word)) {
                command.target = javaProgramOf(words.subspan(at)).jar;
                return command;
            }
            continue;
        }
        command.target = word;
        return command;
    }
    // Without an argument they run the code bundled beside them.
    return isEngine(command.interpreter) ? Command{command.interpreter, {}, false} : command;
}

Command commandOfProcess(std::span<const std::string> words,
                         const std::optional<std::string>& executable) {
    if (!executable) {
        return commandOf(words);
    }
    if (!isInterpreter(*executable)) {
        return {*executable, {}, false};
    }
    Command command = commandOf(words);
    if (isEngine(*executable) && command.interpreter.empty()) {
        return {*executable, {}, false};
    }
    if (isWine(*executable) && command.interpreter.empty()) {
        // Wine replaces its own name by that of the Windows program.
        return {command.target, *executable, false};
    }
    const bool isFitting = !words.empty() && !command.interpreter.empty() &&
                           isInterpreter(words.front()) &&
                           isWine(*executable) == isWine(command.interpreter) &&
                           isJava(*executable) == isJava(command.interpreter);
    return isFitting ? command : Command{{}, *executable, false};
}

JavaProgram javaProgramOf(std::span<const std::string> words) {
    constexpr std::array<std::string_view, 5> paths = {"-cp", "-classpath", "--class-path", "-p",
                                                       "--module-path"};
    constexpr std::array<std::string_view, 8> values = {
        "--add-opens",     "--add-exports",         "--add-modules",  "--add-reads",
        "--limit-modules", "--upgrade-module-path", "--patch-module", "--enable-native-access"};
    JavaProgram program;
    auto word = std::ranges::find_if(words, [](const auto& each) { return isJava(each); });
    if (word == words.end()) {
        return program;
    }
    while (++word != words.end()) {
        const bool hasNext = word + 1 != words.end();
        if (*word == "-jar" && hasNext) {
            program.jar = *(word + 1);
            return program;
        }
        if (isAnyOf(*word, paths) && hasNext) {
            program.classPath += program.classPath.empty() ? "" : ":";
            program.classPath += *++word;
        } else if (isAnyOf(*word, values)) {
            word += hasNext ? 1 : 0;
        } else if ((*word == "-m" || *word == "--module") && hasNext) {
            program.mainClass = *(word + 1);
            break;
        } else if (!word->starts_with('-')) {
            program.mainClass = *word;
            break;
        }
    }
    if (program.classPath.ends_with(".jar") && program.classPath.find(':') == std::string::npos) {
        program.jar = program.classPath;
    }
    return program;
}

std::string assignmentIn(std::span<const std::string> words, std::string_view name) {
    for (const std::string& word : words) {
        if (word.starts_with(name) && word.size() > name.size() && word[name.size()] == '=') {
            return word.substr(name.size() + 1);
        }
        if (!isAssignment(word) && !word.starts_with('-') && !isWrapper(word)) {
            break;
        }
    }
    return {};
}

std::string keyOf(const Command& command) {
    std::string_view name = baseName(command.target);
    if (isWine(command.interpreter)) {
        name = name.substr(name.rfind('\\') + 1);
    }
    for (const std::string_view ending : {".py", ".pl", ".sh", ".bin", ".jar"}) {
        if (name.size() > ending.size() && name.ends_with(ending)) {
            name.remove_suffix(ending.size());
            break;
        }
    }
    return std::string(name);
}

std::string execKey(std::span<const std::string> words) {
    return keyOf(commandOf(words));
}

std::string programKey(std::string_view path) {
    return isInterpreter(path) || isWrapper(path) ? std::string()
                                                  : keyOf({std::string(path), {}, false});
}

bool isInterpreter(std::string_view path) {
    const std::string_view name = baseName(path);
    return isShell(path) || isIn(interpreters, name) || isIn(interpreters, interpreterFamily(name));
}

bool isWrapper(std::string_view path) {
    return isIn(wrappers, baseName(path)) || isIn(launchers, baseName(path));
}

std::string_view interpreterFamily(std::string_view path) {
    std::string_view name = baseName(path);
    // Suffixes of Debian and of interpreter builds.
    for (const std::string_view ending : {"-dbg", "-qt5", "-qt6", "-x86_64-linux-gnu"}) {
        if (name.size() > ending.size() && name.ends_with(ending)) {
            name.remove_suffix(ending.size());
        }
    }
    // python3.13t, python3.7dm: flags of the build.
    const std::size_t digit = name.find_last_of("0123456789");
    if (digit != std::string_view::npos && digit + 3 >= name.size() &&
        name.find_first_not_of("tdmu", digit + 1) == std::string_view::npos) {
        name = name.substr(0, digit + 1);
    }
    const std::size_t last = name.find_last_not_of("0123456789.-");
    return name.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

bool isShell(std::string_view path) {
    std::string_view name = baseName(path);
    if (name.starts_with('-')) {
        name.remove_prefix(1); // A login shell.
    }
    return isIn(shells, name);
}

bool isJava(std::string_view path) {
    const std::string_view name = baseName(path);
    return name == "java" || name == "javaw";
}

bool isWine(std::string_view path) {
    return isInterpreter(path) && baseName(path).starts_with("wine");
}

} // namespace calmora
