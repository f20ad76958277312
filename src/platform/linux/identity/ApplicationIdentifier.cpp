#include "platform/linux/identity/ApplicationIdentifier.h"

#include "platform/linux/identity/KnownIds.h"
#include "platform/linux/xdg/DisplayText.h"
#include "platform/linux/xdg/ExecKey.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <filesystem>

namespace calmora {

namespace {

constexpr std::string_view desktopEnding = ".desktop";

/// A desktop id and how it was found.
struct Match {
    std::string id;
    /// Null for a sandbox or an AppImage whose desktop file is not among the installed ones.
    const DesktopEntry* entry = nullptr;
    IdentityRule rule = IdentityRule::synthetic;
};

using Found = std::optional<Match>;

Found matchOf(const DesktopEntry* entry, IdentityRule rule) {
    return entry ? Found(Match{entry->id, entry, rule}) : std::nullopt;
}

std::string_view baseName(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

/// One ".desktop" only: there is an org.telegram.desktop.desktop.
std::string_view withoutEnding(std::string_view name) {
    if (name.ends_with(desktopEnding)) {
        name.remove_suffix(desktopEnding.size());
    }
    return name;
}

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return lower;
}

/// The words of a window's class that may name its application, the instance first. What many
/// programs share names none of them.
std::vector<std::string> classWords(const TopLevelWindow& window) {
    std::vector<std::string> words;
    for (const std::string& word : {window.instance, window.className}) {
        if (!word.empty() && !isInterpreter(word)) {
            words.push_back(word);
        }
    }
    return words;
}

bool isGenericClass(std::string_view word) {
    const std::string lower = lowered(word);
    return lower.empty() || lower == "tk" || lower == "toplevel" || lower == "main" ||
           lower.starts_with("sun-awt-") || lower.starts_with('!') || lower.starts_with('.') ||
           isInterpreter(word);
}

/// The entry that a path or an id means, with or without its ending.
const DesktopEntry* entryNamed(std::string_view pathOrId, const DesktopEntryIndex& index) {
    if (pathOrId.empty()) {
        return nullptr;
    }
    if (const DesktopEntry* entry = index.withPath(pathOrId)) {
        return entry;
    }
    const std::string_view name = baseName(pathOrId);
    const DesktopEntry* entry = index.withId(withoutEnding(name));
    return entry ? entry : index.withId(name);
}

/// The key of the shell script that the process is part of; empty where its parent is none.
std::string parentScriptKey(const ApplicationFacts& facts) {
    if (!facts.parent || facts.parent->commandLine.empty() ||
        !isShell(facts.parent->commandLine.front()) ||
        scriptOf(facts.parent->commandLine).empty()) {
        return {};
    }
    return execKey(facts.parent->commandLine);
}

/// The entry if the process runs what it starts. A unit and an environment pass on to whatever is
/// started there, and remain when the program that they were made for has ended: what was typed
/// into a terminal is not the terminal and must not be quit as one.
const DesktopEntry* ifRunBy(const ApplicationFacts& facts, const DesktopEntry* entry) {
    if (!entry || entry->execKey.empty()) {
        return nullptr;
    }
    const bool isRun = entry->execKey == execKey(facts.process.commandLine) ||
                       entry->execKey == programKey(facts.process.executable.value_or("")) ||
                       entry->execKey == parentScriptKey(facts);
    return isRun ? entry : nullptr;
}

Found bySandbox(const ProcessDetails& process, const DesktopEntryIndex& index) {
    std::string id;
    if (process.flatpak) {
        id = process.flatpak->applicationId;
    } else if (auto snap = snapOfCgroup(process.cgroup)) {
        // A program of the system that was started from a snap stays in its control group.
        const bool isOfSystem = process.executable && !process.executable->starts_with("/snap/") &&
                                !process.executable->starts_with("/var/lib/snapd/snap/");
        if (isOfSystem) {
            return std::nullopt;
        }
        id = *std::move(snap);
    } else {
        return std::nullopt;
    }
    return Match{id, index.withId(id), IdentityRule::sandbox};
}

Found byStartupWmClass(const TopLevelWindow& window, const DesktopEntryIndex& index) {
    const DesktopEntry* entry = nullptr;
    for (const std::string& word : classWords(window)) {
        entry = entry ? entry : index.withStartupWmClass(word);
    }
    for (const std::string& word : classWords(window)) {
        entry = entry ? entry : index.withStartupWmClassIgnoringCase(word);
    }
    return matchOf(entry, IdentityRule::startupWmClass);
}

Found byWindowHint(const TopLevelWindow& window, const DesktopEntryIndex& index) {
    const DesktopEntry* entry = entryNamed(window.kdeDesktopFile, index);
    return matchOf(entry ? entry : entryNamed(window.gtkApplicationId, index),
                   IdentityRule::windowHint);
}

const DesktopEntry* entryWithIdLike(const std::string& word, const DesktopEntryIndex& index) {
    std::string dashed = lowered(word);
    std::ranges::replace(dashed, ' ', '-');
    for (const char* prefix : {"", "gnome-", "fedora-", "mozilla-", "debian-"}) {
        for (const std::string& variant : {word, lowered(word), dashed}) {
            if (const DesktopEntry* entry = index.withId(prefix + variant)) {
                return entry;
            }
        }
    }
    return nullptr;
}

Found byIdOfClass(const TopLevelWindow& window, const DesktopEntryIndex& index) {
    const DesktopEntry* entry = nullptr;
    for (const std::string& word : classWords(window)) {
        entry = entry ? entry : entryWithIdLike(word, index);
    }
    return matchOf(entry, IdentityRule::desktopIdOfClass);
}

Found bySystemdUnit(const ApplicationFacts& facts, const DesktopEntryIndex& index) {
    for (const std::string& id : desktopIdsOfCgroup(facts.process.cgroup)) {
        if (const DesktopEntry* entry = ifRunBy(facts, index.withId(id))) {
            return matchOf(entry, IdentityRule::systemdUnit);
        }
    }
    return std::nullopt;
}

Found byLaunchEnvironment(const ApplicationFacts& facts, const DesktopEntryIndex& index) {
    const ProcessDetails& process = facts.process;
    const LaunchEnvironment& environment = process.environment;
    const DesktopEntry* entry = nullptr;
    if (environment.launchedDesktopFilePid == process.pid) {
        entry = entryNamed(environment.launchedDesktopFile, index);
    }
    if (!entry) {
        entry = ifRunBy(facts, entryNamed(environment.bamfDesktopFileHint, index));
    }
    if (!entry && !process.appImageDesktopFile.empty()) {
        const std::string id(withoutEnding(baseName(process.appImageDesktopFile)));
        return Match{id, index.withId(id), IdentityRule::launchEnvironment};
    }
    return matchOf(entry, IdentityRule::launchEnvironment);
}

Found byExecKey(const ProcessDetails& process, const DesktopEntryIndex& index) {
    const DesktopEntry* entry = index.withExecKey(execKey(process.commandLine));
    if (!entry && process.executable) {
        entry = index.withExecKey(programKey(*process.executable));
    }
    return matchOf(entry, IdentityRule::execKey);
}

Found byIdEnd(const TopLevelWindow& window, const DesktopEntryIndex& index) {
    auto words = classWords(window);
    std::ranges::reverse(words);
    const DesktopEntry* entry = nullptr;
    for (const std::string& word : words) {
        entry = entry ? entry : index.onlyVisibleWithIdEnd(word);
    }
    return matchOf(entry, IdentityRule::desktopIdEnd);
}

Found byJavaClass(const TopLevelWindow& window, const DesktopEntryIndex& index) {
    if (!window.instance.starts_with("sun-awt-")) {
        return std::nullopt;
    }
    // The toolkit writes the class org.gjt.sp.jedit.jEdit with dashes.
    const std::string last = window.className.substr(window.className.find_last_of("-.") + 1);
    if (isGenericClass(last)) {
        return std::nullopt;
    }
    const DesktopEntry* entry = index.withStartupWmClassIgnoringCase(last);
    return matchOf(entry ? entry : entryWithIdLike(last, index), IdentityRule::javaClass);
}

Found byEntryName(const TopLevelWindow& window, const DesktopEntryIndex& index) {
    auto words = classWords(window);
    std::ranges::reverse(words);
    const DesktopEntry* entry = nullptr;
    for (const std::string& word : words) {
        entry = entry ? entry : index.onlyVisibleWithName(word);
    }
    return matchOf(entry, IdentityRule::entryName);
}

Found byParentScript(const ApplicationFacts& facts, const DesktopEntryIndex& index) {
    return matchOf(index.withExecKey(parentScriptKey(facts)), IdentityRule::parentScript);
}

/// The first of several ways that gives an answer; later ones are not tried.
template <typename... Ways>
Found firstOf(Ways... ways) {
    Found found;
    (void)((found = ways(), found.has_value()) || ...);
    return found;
}

/// What the window alone tells.
Found byWindowAlone(const TopLevelWindow& window, const DesktopEntryIndex& index) {
    return firstOf(
        [&] { return byStartupWmClass(window, index); },
        [&] { return byWindowHint(window, index); }, [&] { return byIdOfClass(window, index); },
        [&] { return byIdEnd(window, index); }, [&] { return byJavaClass(window, index); },
        [&] { return byEntryName(window, index); });
}

Found byProcess(const ApplicationFacts& facts, const DesktopEntryIndex& index) {
    return firstOf([&] { return bySystemdUnit(facts, index); },
                   [&] { return byLaunchEnvironment(facts, index); },
                   [&] { return byExecKey(facts.process, index); });
}

Found byWindow(const TopLevelWindow& window, const ApplicationFacts& facts,
               const DesktopEntryIndex& index) {
    return firstOf(
        [&] { return byStartupWmClass(window, index); },
        [&] { return byWindowHint(window, index); }, [&] { return byIdOfClass(window, index); },
        [&] { return byProcess(facts, index); }, [&] { return byIdEnd(window, index); },
        [&] { return byJavaClass(window, index); }, [&] { return byEntryName(window, index); },
        [&] { return byParentScript(facts, index); });
}

/// A transient window counts as the window that it belongs to.
bool isTransientOfAnother(const TopLevelWindow& window, const ApplicationFacts& facts) {
    return std::ranges::any_of(facts.windows, [&](const TopLevelWindow& other) {
        return other.id == window.transientFor && other.id != window.id && window.transientFor != 0;
    });
}

Found find(const ApplicationFacts& facts, const DesktopEntryIndex& index) {
    if (Found found = bySandbox(facts.process, index)) {
        return found;
    }
    Found oldest;
    bool differ = false;
    for (const TopLevelWindow& window : facts.windows) {
        if (isTransientOfAnother(window, facts)) {
            continue;
        }
        // A window that tells nothing counts as the others of its process.
        const Found found = byWindow(window, facts, index);
        if (found && oldest) {
            differ = differ || found->id != oldest->id;
        } else if (found) {
            oldest = found;
        }
    }
    if (differ) {
        const Found program = byExecKey(facts.process, index);
        return program ? program : oldest;
    }
    if (oldest) {
        return oldest;
    }
    if (facts.windows.empty()) {
        return firstOf([&] { return byProcess(facts, index); },
                       [&] { return byParentScript(facts, index); });
    }
    for (const TopLevelWindow& window : facts.groupWindows) {
        if (Found found = byWindowAlone(window, index)) {
            found->rule = IdentityRule::windowGroup;
            return found;
        }
    }
    return std::nullopt;
}

/// The class of the first window whose class tells something; empty where none does.
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

/// A word for the end of an identifier, where a dot would begin another one.
std::string identifierWord(std::string_view text) {
    std::string word = displayLine(text);
    std::ranges::replace(word, '.', '-');
    return word.empty() ? "Application" : word;
}

std::string withoutLastEnding(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return std::string(dot == 0 ? name : name.substr(0, dot));
}

/// The program's file as far as it is known.
std::string programOf(const ProcessDetails& process) {
    if (!process.environment.appImage.empty() && !process.appImageDesktopFile.empty()) {
        return process.environment.appImage; // Its mount point is another one each time.
    }
    if (process.executable) {
        return *process.executable;
    }
    const bool isPath =
        !process.commandLine.empty() && process.commandLine.front().starts_with('/');
    return isPath ? process.commandLine.front() : process.comm;
}

/// The script of an interpreter, absolute where the folder is known that it was started in; one
/// that went to the root since then tells none.
std::string scriptPathOf(const ProcessDetails& process) {
    const std::string script = scriptOf(process.commandLine);
    if (script.empty() || script.starts_with('/') ||
        process.workingDirectory.value_or("/") == "/") {
        return script;
    }
    const std::filesystem::path path(*process.workingDirectory + "/" + script);
    std::string absolute = path.lexically_normal().string();
    if (absolute.ends_with('/')) {
        absolute.pop_back();
    }
    return absolute;
}

ApplicationIdentity syntheticIdentity(const ApplicationFacts& facts) {
    const std::string program = programOf(facts.process);
    const std::string script = scriptPathOf(facts.process);
    const std::string windowClass = tellingClass(facts.windows);
    const bool isWine = baseName(program).starts_with("wine");

    ApplicationIdentity identity;
    std::string fileName;
    bool isAmbiguous = false;
    if (isWine && !windowClass.empty()) {
        fileName = withoutLastEnding(windowClass);
        identity.bundleIdentifier = "wine:" + windowClass;
    } else if (!script.empty() && isInterpreter(program)) {
        fileName = withoutLastEnding(baseName(script));
        identity.bundleIdentifier = "script:" + displayLine(script);
        isAmbiguous = !script.starts_with('/');
    } else if (isInterpreter(program) && !windowClass.empty()) {
        // One file for many programs: only the class tells them apart.
        fileName = windowClass.substr(windowClass.find_last_of("-.") + 1);
        identity.bundleIdentifier = "exe:" + displayLine(program) + ":" + windowClass;
    } else {
        fileName = baseName(program);
        identity.bundleIdentifier = "exe:" + displayLine(program);
        isAmbiguous = isInterpreter(program);
    }
    if (isAmbiguous) {
        // Two programs of one identifier would be quit together; that is worse than to forget.
        identity.bundleIdentifier +=
            ":" + std::to_string(facts.process.pid) + ":" + std::to_string(facts.process.startTime);
    }
    identity.bundleIdentifier += "." + identifierWord(fileName);
    identity.localizedName = windowClass.empty() ? identifierWord(fileName) : windowClass;
    return identity;
}

ApplicationIdentity identityOf(const Match& match, const ApplicationFacts& facts,
                               const DesktopEntryIndex& index) {
    ApplicationIdentity identity;
    identity.desktopId = match.id;
    identity.rule = match.rule;
    identity.bundleIdentifier = bundleIdentifierOf(match.id, index);
    if (match.entry) {
        identity.localizedName = match.entry->name;
        identity.icon = iconImage(match.entry->icon);
        identity.entryPath = match.entry->path;
        identity.execKey = match.entry->execKey;
        identity.isVisible = match.entry->isVisible;
        identity.isAutostart = match.entry->isAutostart;
    }
    if (identity.localizedName.empty()) {
        const std::string windowClass = tellingClass(facts.windows);
        identity.localizedName = windowClass.empty()
                                     ? identifierWord(match.id.substr(match.id.rfind('.') + 1))
                                     : windowClass;
    }
    return identity;
}

/// Undoes systemd's escaping of a part of a unit's name: \x2d is a dash.
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

ApplicationIdentity identify(const ApplicationFacts& facts, const DesktopEntryIndex& index) {
    const Found found = find(facts, index);
    return found ? identityOf(*found, facts, index) : syntheticIdentity(facts);
}

std::optional<ApplicationIdentity> identifyWindowless(const ProcessDetails& process,
                                                      const DesktopEntryIndex& index) {
    ApplicationFacts facts;
    facts.process = process;
    const Found found = firstOf([&] { return bySandbox(process, index); },
                                [&] { return bySystemdUnit(facts, index); },
                                [&] { return byExecKey(process, index); });
    if (!found || !found->entry || found->entry->needsTerminal) {
        return std::nullopt;
    }
    return identityOf(*found, facts, index);
}

bool mayBeInstalled(const ProcessDetails& process, const DesktopEntryIndex& index) {
    return !desktopIdsOfCgroup(process.cgroup).empty() || snapOfCgroup(process.cgroup) ||
           byExecKey(process, index);
}

std::string bundleIdentifierOf(std::string_view desktopId, const DesktopEntryIndex& index) {
    const bool opensFolders = !desktopId.empty() && desktopId == index.fileManager();
    return opensFolders ? "com.apple.finder" : wellKnownIdentifier(desktopId);
}

std::vector<std::string> desktopIdsOfCgroup(std::string_view cgroup) {
    std::string_view unit = baseName(cgroup);
    std::vector<std::string> ids;
    const auto addWithAndWithoutLauncher = [&](std::string_view name) {
        ids.push_back(unescapedUnit(name));
        // Dashes of an id are escaped, so the first plain one ends the launcher's name.
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
