// SPDX-License-Identifier: MIT
#include "platform/linux/identity/SyntheticIdentity.h"

#include "platform/linux/identity/StartedProgram.h"
#include "platform/linux/xdg/ExecKey.h"
#include "support/ShownName.h"
#include "support/TextHelpers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

namespace calmora {

namespace {

/// An identifier without its last word.
struct Stem {
    std::string identifier;
    /// A file name, readable.
    std::string name;
    /// Not unique to this program.
    bool isAmbiguous = false;
};

std::string_view withoutLastEnding(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == 0 ? name : name.substr(0, dot);
}

/// The name of a script, or of its folder for a common file name.
std::string_view scriptName(std::string_view path) {
    constexpr std::array<std::string_view, 3> common = {"__main__.py", "package.json", "index.js"};
    if (std::ranges::find(common, baseName(path)) != common.end()) {
        const std::string_view folder = folderPart(path);
        return baseName(folder.substr(0, folder.size() - 1));
    }
    return withoutLastEnding(baseName(path));
}

/// A stable short hash (FNV-1a).
std::string digest(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const unsigned char letter : text) {
        hash = (hash ^ letter) * 0x100000001b3;
    }
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), hash, 16).ptr;
    return {digits.data(), end};
}

/// A java program's class path from any source; empty if unknown.
std::string classPathOf(const ProcessDetails& process, const JavaProgram& program) {
    std::string path =
        program.classPath.empty() ? process.environment.classPath : program.classPath;
    path = path.empty() ? "." : path;
    bool isWhole = path.starts_with('/');
    for (std::size_t colon = path.find(':'); colon != std::string::npos;
         colon = path.find(':', colon + 1)) {
        isWhole = isWhole && path.compare(colon + 1, 1, "/") == 0;
    }
    if (!isWhole && !process.workingDirectory) {
        return {};
    }
    path = isWhole ? path : *process.workingDirectory + ":" + path;
    constexpr std::size_t longest = 200;
    return path.size() > longest ? digest(path) : path;
}

std::optional<Stem> javaStem(const ProcessDetails& process) {
    const JavaProgram program = javaProgramOf(process.commandLine);
    const std::string classPath = classPathOf(process, program);
    if (program.mainClass.empty() || program.mainClass.starts_with('@') || classPath.empty()) {
        return std::nullopt;
    }
    const std::string& name = program.mainClass;
    return Stem{"java:" + displayLine(classPath) + ":" + displayLine(name),
                name.substr(name.find_last_of("./") + 1)};
}

/// The file of a native program, or a substitute.
std::string fileOf(const ProcessDetails& process, const StartedProgram& program) {
    if (!program.path.empty()) {
        return program.path;
    }
    const bool isPath =
        !process.commandLine.empty() && process.commandLine.front().starts_with('/');
    return isPath ? process.commandLine.front() : process.comm;
}

Stem stemOf(const ProcessDetails& process) {
    const StartedProgram program = startedProgram(process);
    if (program.interpreter.empty()) {
        const std::string file = fileOf(process, program);
        return {"exe:" + displayLine(file), std::string(baseName(file))};
    }
    if (isWine(program.interpreter) && !program.path.empty()) {
        return {"wine:" + displayLine(program.path),
                std::string(withoutLastEnding(baseName(program.path)))};
    }
    if (isJava(program.interpreter)) {
        if (auto stem = javaStem(process)) {
            return *std::move(stem);
        }
    }
    if (!program.path.empty()) {
        return {"script:" + displayLine(program.path), std::string(scriptName(program.path))};
    }
    if (!program.key.empty()) {
        return {"script:" + displayLine(program.key), program.key, true};
    }
    const std::string file = process.executable.value_or(program.interpreter);
    return {"exe:" + displayLine(file), std::string(baseName(file)), true};
}

} // namespace

std::string displayLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    while (!text.empty()) {
        const Utf8Character next = firstCharacter(text);
        if (!next.isValid) {
            line += "\uFFFD";
        } else {
            line += isControl(next.point) ? std::string_view(" ") : text.substr(0, next.length);
        }
        text.remove_prefix(next.length);
    }
    return std::string(trimmed(line, " "));
}

bool isGenericClass(std::string_view word) {
    const std::string lower = loweredAscii(word);
    return lower.empty() || lower == "tk" || lower == "toplevel" || lower == "main" ||
           lower.starts_with("sun-awt-") || lower.starts_with('!') || lower.starts_with('.') ||
           isInterpreter(word);
}

std::string tellingClass(const std::vector<TopLevelWindow>& windows) {
    for (const TopLevelWindow& window : windows) {
        for (const std::string& word : {window.className, window.instance}) {
            if (!isGenericClass(word) && !displayLine(word).empty()) {
                return displayLine(word);
            }
        }
    }
    return {};
}

std::string identifierWord(std::string_view text) {
    std::string word = displayLine(text);
    std::ranges::replace(word, '.', '-');
    return word.empty() ? "Application" : word;
}

ApplicationIdentity syntheticIdentity(const ApplicationFacts& facts) {
    const Stem stem = stemOf(facts.process);
    const std::string windowClass = tellingClass(facts.windows);
    ApplicationIdentity identity;
    identity.bundleIdentifier = stem.identifier;
    // Programs with the same identifier would be quit together, which is worse than forgetting one.
    if (stem.isAmbiguous || facts.process.isExecutableElsewhere) {
        identity.bundleIdentifier +=
            ":" + std::to_string(facts.process.pid) + ":" + std::to_string(facts.process.startTime);
    }
    identity.bundleIdentifier += "." + identifierWord(stem.name);
    identity.localizedName = windowClass.empty() ? identifierWord(stem.name) : windowClass;
    return identity;
}

} // namespace calmora
