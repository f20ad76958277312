#pragma once

#include "platform/linux/identity/ApplicationFacts.h"
#include "platform/linux/xdg/DesktopEntryIndex.h"
#include "platform/linux/xdg/ExecKey.h"
#include "platform/linux/xdg/ExecResolver.h"

#include <iterator>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace calmora {

/// The words of a line.
inline std::vector<std::string> words(const std::string& line) {
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// Links and scripts by their paths; every other path is a program, and PATH is /usr/bin.
using Files = std::map<std::string, ProgramFile>;

inline DesktopEntry entryOf(const std::string& id, const std::string& text, const Files& files) {
    auto entry = parseDesktopEntry(text, {});
    entry->id = id;
    entry->path = "/usr/share/applications/" + id + ".desktop";
    const std::filesystem::path folder = "/usr/bin";
    resolveExec(*entry, {&folder, 1}, [&](const std::string& path) {
        const auto file = files.find(path);
        return file == files.end() ? ProgramFile{path, {}, true} : file->second;
    });
    return *std::move(entry);
}

inline TopLevelWindow windowOf(WindowId id, const std::string& instance,
                               const std::string& className, const std::string& gtkId = {}) {
    return {.id = id, .instance = instance, .className = className, .gtkApplicationId = gtkId};
}

/// A process of its command line; the file that an absolute path in it means is there. Without an
/// executable it cannot be read.
inline ApplicationFacts factsOf(const std::string& commandLine, const std::string& executable,
                                std::vector<TopLevelWindow> windows) {
    ApplicationFacts facts;
    facts.process.pid = 4711;
    facts.process.parent = 4000;
    facts.process.startTime = 99;
    facts.process.comm = "comm";
    facts.process.commandLine = words(commandLine);
    if (!executable.empty()) {
        facts.process.executable = executable;
    }
    const Command command = commandOfProcess(facts.process.commandLine, facts.process.executable);
    if (!command.interpreter.empty() && command.target.starts_with('/')) {
        facts.process.commandPath = command.target;
    }
    facts.windows = std::move(windows);
    return facts;
}

} // namespace calmora
