// SPDX-License-Identifier: MIT
#include "platform/linux/identity/ApplicationIdentifier.h"

#include "platform/linux/identity/KnownIds.h"
#include "platform/linux/identity/StartedProgram.h"
#include "platform/linux/identity/SyntheticIdentity.h"
#include "platform/linux/xdg/ExecKey.h"
#include "support/TextHelpers.h"

#include <algorithm>

namespace calmora {

namespace {

constexpr std::string_view desktopEnding = ".desktop";

/// A desktop id and the rule that found it.
struct Match {
    std::string id;
    /// Null for a sandbox whose desktop file is not installed.
    const DesktopEntry* entry = nullptr;
    IdentityRule rule = IdentityRule::synthetic;
};

using Found = std::optional<Match>;

Found matchOf(const DesktopEntry* entry, IdentityRule rule) {
    return entry ? Found(Match{entry->id, entry, rule}) : std::nullopt;
}

/// Strips one ".desktop" only: org.telegram.desktop.desktop exists.
std::string_view withoutEnding(std::string_view name) {
    if (name.ends_with(desktopEnding)) {
        name.remove_suffix(desktopEnding.size());
    }
    return name;
}

/// The words of a window's class that may name its application, the instance first. Interpreter
/// names are left out.
std::vector<std::string> classWords(const TopLevelWindow& window) {
    std::vector<std::string> words;
    for (const std::string& word : {window.instance, window.className}) {
        if (!word.empty() && !isInterpreter(word)) {
            words.push_back(word);
        }
    }
    return words;
}

/// The same, the class first.
std::vector<std::string> classWordsClassFirst(const TopLevelWindow& window) {
    auto words = classWords(window);
    std::ranges::reverse(words);
    return words;
}

/// The entry for a path or an id, with or without its ending.
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

/// The first result of several rules; later ones are not tried.
template <typename... Ways>
Found firstOf(Ways... ways) {
    Found found;
    (void)((found = ways(), found.has_value()) || ...);
    return found;
}

/// Whether a process in a snap's control group runs the snap: programs of the system or other snaps
/// that it starts stay in the group.
bool runsFromSnap(const ProcessDetails& process, std::string_view snap) {
    if (!process.executable) {
        return true;
    }
    for (const std::string_view root : {"/snap/", "/var/lib/snapd/snap/"}) {
        if (process.executable->starts_with(root)) {
            const std::string_view path = std::string_view(*process.executable).substr(root.size());
            const std::string_view owner = path.substr(0, path.find('/'));
            const bool isBase = owner == "bare" || (owner.starts_with("core") &&
                                                    owner.find_first_not_of("0123456789", 4) ==
                                                        std::string_view::npos);
            return owner == snap || isBase;
        }
    }
    // A confined snap's root is its base, which may hold its interpreter.
    return process.hasOwnRoot;
}

Found bySandbox(const ProcessDetails& process, const DesktopEntryIndex& index) {
    std::string id;
    if (process.flatpak) {
        id = process.flatpak->applicationId;
    } else if (auto snap = snapOfCgroup(process.cgroup)) {
        if (!runsFromSnap(process, snap->substr(0, snap->find('_')))) {
            return std::nullopt;
        }
        id = *std::move(snap);
    } else {
        return std::nullopt;
    }
    return Match{id, index.withId(id), IdentityRule::sandbox};
}

/// The best entry that starts this program; null if none.
const DesktopEntry* entryStarting(const StartedProgram& program, const DesktopEntryIndex& index) {
    for (const std::string* key : {&program.calledKey, &program.key}) {
        for (const DesktopEntry* entry : index.withExecKey(*key)) {
            if (startsProgram(*entry, program)) {
                return entry;
            }
        }
    }
    const auto found = index.withExecPath(program.path);
    return found.empty() ? nullptr : found.front();
}

/// Applies the identity rules to one process and its windows.
class Recognition {
  public:
    Recognition(const ApplicationFacts& facts, const DesktopEntryIndex& index)
        : facts_(facts), index_(index), program_(startedProgram(facts.process)),
          script_(parentScript(facts)) {}

    /// Rules that need the process only.
    [[nodiscard]] Found byProcess() const {
        return firstOf([&] { return bySystemdUnit(); }, [&] { return byLaunchEnvironment(); },
                       [&] { return byExecKey(); });
    }

    /// Rules for a window of the process; for another process's, `isOwn` is false, those that need
    /// the window only.
    [[nodiscard]] Found byWindow(const TopLevelWindow& window, bool isOwn) const {
        return firstOf([&] { return byStartupWmClass(window); },
                       [&] { return byWindowHint(window); }, [&] { return byIdOfClass(window); },
                       [&] { return isOwn ? byProcess() : Found(); },
                       [&] { return byIdEnd(window); }, [&] { return byJavaClass(window); },
                       [&] { return byEntryName(window); },
                       [&] { return isOwn ? byParentScript() : Found(); });
    }

    [[nodiscard]] Found bySystemdUnit() const {
        for (const std::string& id : desktopIdsOfCgroup(facts_.process.cgroup)) {
            if (const DesktopEntry* entry = ifRun(index_.withId(id))) {
                return matchOf(entry, IdentityRule::systemdUnit);
            }
        }
        return std::nullopt;
    }

    [[nodiscard]] Found byExecKey() const {
        return matchOf(entryStarting(program_, index_), IdentityRule::execKey);
    }

    [[nodiscard]] Found byParentScript() const {
        return script_ ? matchOf(entryStarting(*script_, index_), IdentityRule::parentScript)
                       : std::nullopt;
    }

  private:
    /// The parent's shell script; absent if the parent runs none.
    static std::optional<StartedProgram> parentScript(const ApplicationFacts& facts) {
        if (facts.parent) {
            StartedProgram program = startedProgram(*facts.parent);
            if (isShell(program.interpreter) && !program.path.empty()) {
                return program;
            }
        }
        return std::nullopt;
    }

    /// Returns the entry if the process runs its program, directly or through a script. Child
    /// processes inherit units and environments and may outlive the program: a command typed into a
    /// terminal is not the terminal and must not be quit as one.
    [[nodiscard]] const DesktopEntry* ifRun(const DesktopEntry* entry) const {
        const bool isRun = entry && (startsProgram(*entry, program_) ||
                                     (script_ && startsProgram(*entry, *script_)) ||
                                     (!entry->execInterpreter.empty() && !program_.key.empty() &&
                                      entry->execKey == program_.key));
        return isRun ? entry : nullptr;
    }

    /// Of several matching entries, the one that starts this program, then one installed together
    /// with it.
    [[nodiscard]] const DesktopEntry* declared(DesktopEntryIndex::Entries entries) const {
        const DesktopEntry* together = nullptr;
        const DesktopEntry* first = nullptr;
        for (const DesktopEntry* entry : entries) {
            if (startsProgram(*entry, program_)) {
                return entry;
            }
            const bool holds = declaresFor(*entry, program_);
            first = !first && holds ? entry : first;
            together =
                !together && holds && isInstalledTogether(*entry, program_) ? entry : together;
        }
        return together ? together : first;
    }

    [[nodiscard]] Found byStartupWmClass(const TopLevelWindow& window) const {
        const DesktopEntry* entry = nullptr;
        for (const std::string& word : classWords(window)) {
            entry = entry ? entry : declared(index_.withStartupWmClass(word));
        }
        for (const std::string& word : classWords(window)) {
            entry = entry ? entry : declared(index_.withStartupWmClassIgnoringCase(word));
        }
        return matchOf(entry, IdentityRule::startupWmClass);
    }

    [[nodiscard]] Found byWindowHint(const TopLevelWindow& window) const {
        const DesktopEntry* entry = entryNamed(window.kdeDesktopFile, index_);
        return matchOf(entry ? entry : entryNamed(window.gtkApplicationId, index_),
                       IdentityRule::windowHint);
    }

    [[nodiscard]] const DesktopEntry* ifMayStart(const DesktopEntry* entry) const {
        return entry && mayStart(*entry, program_) ? entry : nullptr;
    }

    /// The first entry with an id like this word that satisfies `isWanted`.
    template <typename IsWanted>
    [[nodiscard]] const DesktopEntry* withIdLike(const std::string& word,
                                                 const IsWanted& isWanted) const {
        std::string dashed = loweredAscii(word);
        std::ranges::replace(dashed, ' ', '-');
        for (const char* prefix : {"", "gnome-", "fedora-", "mozilla-", "debian-"}) {
            for (const std::string& variant : {word, loweredAscii(word), dashed}) {
                const DesktopEntry* entry = index_.withId(prefix + variant);
                if (entry && isWanted(*entry, program_)) {
                    return entry;
                }
            }
        }
        return nullptr;
    }

    [[nodiscard]] Found byIdOfClass(const TopLevelWindow& window) const {
        const DesktopEntry* entry = nullptr;
        for (const std::string& word : classWords(window)) {
            entry = entry ? entry : withIdLike(word, mayStart);
        }
        return matchOf(entry, IdentityRule::desktopIdOfClass);
    }

    [[nodiscard]] Found byLaunchEnvironment() const {
        const ProcessDetails& process = facts_.process;
        const LaunchEnvironment& environment = process.environment;
        const DesktopEntry* entry = nullptr;
        if (environment.launchedDesktopFilePid == process.pid) {
            entry = entryNamed(environment.launchedDesktopFile, index_);
        }
        if (!entry) {
            entry = ifRun(entryNamed(environment.bamfDesktopFileHint, index_));
        }
        if (!entry && program_.isAppImage && !process.appImageDesktopFile.empty()) {
            // Many images name their inner entry "app".
            entry = ifMayStart(index_.withId(withoutEnding(baseName(process.appImageDesktopFile))));
        }
        return matchOf(entry, IdentityRule::launchEnvironment);
    }

    [[nodiscard]] Found byIdEnd(const TopLevelWindow& window) const {
        const DesktopEntry* entry = nullptr;
        for (const std::string& word : classWordsClassFirst(window)) {
            entry = entry ? entry : ifMayStart(index_.onlyVisibleWithIdEnd(word));
        }
        return matchOf(entry, IdentityRule::desktopIdEnd);
    }

    [[nodiscard]] Found byJavaClass(const TopLevelWindow& window) const {
        if (!window.instance.starts_with("sun-awt-") && !isJava(program_.interpreter)) {
            return std::nullopt;
        }
        // The toolkit replaces dots by dashes in org.gjt.sp.jedit.jEdit.
        const std::string last = window.className.substr(window.className.find_last_of("-.") + 1);
        if (isGenericClass(last)) {
            return std::nullopt;
        }
        const DesktopEntry* entry = declared(index_.withStartupWmClassIgnoringCase(last));
        return matchOf(entry ? entry : withIdLike(last, declaresFor), IdentityRule::javaClass);
    }

    [[nodiscard]] Found byEntryName(const TopLevelWindow& window) const {
        const DesktopEntry* entry = nullptr;
        for (const std::string& word : classWordsClassFirst(window)) {
            entry = entry ? entry : ifMayStart(index_.onlyVisibleWithName(word));
        }
        return matchOf(entry, IdentityRule::entryName);
    }

    const ApplicationFacts& facts_;
    const DesktopEntryIndex& index_;
    StartedProgram program_;
    std::optional<StartedProgram> script_;
};

/// A transient window counts as its parent.
bool isTransientOfAnother(const TopLevelWindow& window, const ApplicationFacts& facts) {
    return std::ranges::any_of(facts.windows, [&](const TopLevelWindow& other) {
        return other.id == window.transientFor && other.id != window.id && window.transientFor != 0;
    });
}

/// The application of a process, and its windows' applications if they differ.
struct Recognized {
    Found application;
    std::vector<std::string> windowIds;
};

Recognized recognize(const ApplicationFacts& facts, const DesktopEntryIndex& index) {
    Recognized result;
    if (result.application = bySandbox(facts.process, index); result.application) {
        return result;
    }
    const Recognition recognition(facts, index);
    for (const TopLevelWindow& window : facts.windows) {
        if (isTransientOfAnother(window, facts)) {
            continue;
        }
        // An unidentified window counts as the others of its process.
        Found found = recognition.byWindow(window, true);
        if (found) {
            result.windowIds.push_back(found->id);
            result.application = result.application ? result.application : std::move(found);
        }
    }
    if (result.application) {
        const bool differ = std::ranges::any_of(
            result.windowIds, [&](const auto& id) { return id != result.windowIds.front(); });
        const Found program = differ ? recognition.byExecKey() : std::nullopt;
        result.application = program ? program : result.application;
        return result;
    }
    if (facts.windows.empty()) {
        result.application = firstOf([&] { return recognition.byProcess(); },
                                     [&] { return recognition.byParentScript(); });
        return result;
    }
    for (const TopLevelWindow& window : facts.groupWindows) {
        if (result.application = recognition.byWindow(window, false); result.application) {
            result.application->rule = IdentityRule::windowGroup;
            break;
        }
    }
    return result;
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

} // namespace

ApplicationIdentity identify(const ApplicationFacts& facts, const DesktopEntryIndex& index) {
    const Recognized recognized = recognize(facts, index);
    if (!recognized.application) {
        return syntheticIdentity(facts);
    }
    ApplicationIdentity identity = identityOf(*recognized.application, facts, index);
    for (const std::string& id : recognized.windowIds) {
        std::string other = bundleIdentifierOf(id, index);
        auto& others = identity.otherIdentifiers;
        if (other != identity.bundleIdentifier &&
            std::ranges::find(others, other) == others.end()) {
            others.push_back(std::move(other));
        }
    }
    return identity;
}

std::optional<ApplicationIdentity> identifyWindowless(const ProcessDetails& process,
                                                      const DesktopEntryIndex& index) {
    ApplicationFacts facts;
    facts.process = process;
    const Recognition recognition(facts, index);
    const Found found = firstOf([&] { return bySandbox(process, index); },
                                [&] { return recognition.bySystemdUnit(); },
                                [&] { return recognition.byExecKey(); });
    if (!found || !found->entry || found->entry->needsTerminal) {
        return std::nullopt;
    }
    return identityOf(*found, facts, index);
}

bool mayBeInstalled(const ProcessDetails& process, const DesktopEntryIndex& index) {
    if (!desktopIdsOfCgroup(process.cgroup).empty() || snapOfCgroup(process.cgroup)) {
        return true;
    }
    // The script's file and the environment are not read yet.
    const StartedProgram program = startedProgram(process);
    const Command command = commandOfProcess(process.commandLine, process.executable);
    const bool isMounted =
        process.executable && process.executable->find("/.mount_") != std::string::npos;
    return isMounted || !index.withExecKey(program.calledKey).empty() ||
           !index.withExecKey(program.key).empty() || !index.withExecPath(command.target).empty();
}

std::string bundleIdentifierOf(std::string_view desktopId, const DesktopEntryIndex& index) {
    const bool opensFolders = !desktopId.empty() && desktopId == index.fileManager();
    return opensFolders ? "com.apple.finder" : wellKnownIdentifier(desktopId);
}

} // namespace calmora
