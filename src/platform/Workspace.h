// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "platform/ProcessId.h"
#include "support/Subscription.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// How far a request to quit is.
struct QuitRequest {
    /// Whether anything was sent; of no meaning before the request is complete.
    bool wasSent = false;
    /// After this pause continueTerminate() has to be called; absent once the request is complete.
    std::optional<std::chrono::milliseconds> pause = {};
};

/// A running application that can be asked to quit. Held only during one quit operation.
class RunningApplication {
  public:
    virtual ~RunningApplication() = default;

    /// The identifier by which the workspace finds the application's instances; absent if unknown.
    /// It may be narrower than the identifier in the list, which several installed programs can
    /// share.
    [[nodiscard]] virtual std::optional<std::string> bundleIdentifier() const = 0;

    /// A path that contains this application's executables and no others. Text, because it is
    /// compared as a plain prefix: a closing slash matters.
    [[nodiscard]] virtual std::optional<std::string> bundleURL() const = 0;

    /// The application's executable; absent if it may not be read.
    [[nodiscard]] virtual std::optional<std::filesystem::path> executableURL() const = 0;

    /// The application's process.
    [[nodiscard]] virtual ProcessId processIdentifier() const = 0;

    /// Whether the process is gone; for one with several candidates, whether all of their windows
    /// are closed.
    [[nodiscard]] virtual bool isTerminated() const = 0;

    /// Whether its windows may belong to any of several processes. None of these may be signalled.
    [[nodiscard]] virtual bool hasSeveralCandidates() const { return false; }

    /// Asks the application to quit as its own Quit command would. True means that a request was
    /// sent, not that the application is gone.
    virtual bool terminate() = 0;

    /// Begins what terminate() does, without its pauses.
    virtual QuitRequest beginTerminate() { return {.wasSent = terminate()}; }

    /// Goes on with a request that beginTerminate() has not completed. Sends nothing more if it is
    /// never called.
    virtual QuitRequest continueTerminate() { return {}; }

    /// Asks its windows for an answer, see isUnresponsive(). Where that is possible only.
    virtual void probe() {}

    /// Whether a window that the last probe() asked, by whichever object, owes the answer still.
    [[nodiscard]] virtual bool isUnresponsive() const { return false; }

    /// Whether it shows its user a question that came up after the last request to quit, or a modal
    /// dialog, which has to be answered first.
    [[nodiscard]] virtual bool isAsking() const { return false; }

    /// Brings its question to the front, else its newest window that a user switches to. False
    /// where it has none or the desktop does not let us.
    virtual bool activate() { return false; }

    /// Ends the application without asking. True means that the request was delivered.
    virtual bool forceTerminate() = 0;
};

/// How an application presents itself.
enum class ActivationPolicy {
    /// Has windows that a user switches to.
    regular,
    /// Runs without such a window: a tray icon, an agent.
    accessory,
    /// Never comes to the front.
    prohibited,
};

/// What the workspace tells of one running application.
struct WorkspaceApplication {
    ProcessId processIdentifier = 0;
    std::optional<std::string> bundleIdentifier;
    std::optional<std::string> localizedName;
    std::optional<Image> icon;
    ActivationPolicy activationPolicy = ActivationPolicy::prohibited;
    /// Identifiers of other applications whose windows the same process shows.
    std::vector<std::string> otherIdentifiers = {};
    /// All processes that its windows may belong to, ascending, where these cannot be told apart;
    /// empty where there is only one. None of them may be signalled.
    std::vector<ProcessId> candidates = {};
    /// False where its process may have windows of which only several candidates are known, in its
    /// own row or in another one. A forced quit is refused.
    bool canBeForced = true;
    /// The desktop ends it if it takes longer than a few seconds to answer a polite request, which
    /// is therefore the user's to make.
    bool mustAnswerSoon = false;
    /// False where nobody tells when it is in front. It is not ticked before the user does it, and
    /// never quit automatically.
    bool isActivityKnown = true;
    /// The desktop file that starts it again, without ".desktop". Absent where there is none, and
    /// of an application without windows that the menus do not offer: others are started by the
    /// session or by the application that they belong to.
    std::optional<std::string> desktopId = {};
    /// Orders applications by when they were started; means nothing else.
    std::uint64_t startTime = 0;

    /// The candidates, or the only process.
    [[nodiscard]] std::vector<ProcessId> processes() const {
        return candidates.empty() ? std::vector{processIdentifier} : candidates;
    }
};

/// The running applications at one moment, by ascending start time, then process id. Taken once for
/// a refresh and handed on to whatever the refresh works out.
using ApplicationSnapshot = std::vector<WorkspaceApplication>;

/// Whether the process is that of a running application, or one of several candidates.
[[nodiscard]] inline bool isListed(const ApplicationSnapshot& running, ProcessId process) {
    return std::ranges::any_of(running, [process](const WorkspaceApplication& application) {
        return application.processIdentifier == process ||
               std::ranges::binary_search(application.candidates, process);
    });
}

/// An application that is installed, running or not.
struct InstalledApplication {
    /// In the user's language.
    std::string displayName;
    std::optional<Image> icon;
    /// The file that describes the application to the desktop.
    std::filesystem::path location;
    /// What kinds of application it says to be, in the desktop's own words.
    std::vector<std::string> categories = {};
    /// It runs in a terminal's window and has none of its own.
    bool needsTerminal = false;
};

/// The user's applications.
class Workspace {
  public:
    using Handler = std::function<void(const WorkspaceApplication&)>;

    virtual ~Workspace() = default;

    /// The applications that run now.
    [[nodiscard]] virtual ApplicationSnapshot runningApplications() = 0;

    /// The application that has the keyboard; absent when none has.
    [[nodiscard]] virtual std::optional<WorkspaceApplication> frontmostApplication() = 0;

    /// The running application with this process id. Where there is none, or where the id
    /// now names another process than the one that was listed: null then.
    [[nodiscard]] virtual std::unique_ptr<RunningApplication>
    runningApplication(ProcessId processIdentifier) = 0;

    /// Every running application whose RunningApplication::bundleIdentifier() is this one, in the
    /// order of ApplicationSnapshot.
    [[nodiscard]] virtual std::vector<std::unique_ptr<RunningApplication>>
    runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) = 0;

    /// Whether an executable below a bundle path is another program's all the same: a launcher
    /// has the games that it installed in its own folder.
    [[nodiscard]] virtual bool belongsToAnotherProgram(const std::string& /*bundlePath*/,
                                                       const std::string& /*executable*/) const {
        return false;
    }

    /// The identifier under which this workspace lists the application that a stored identifier
    /// means: where the two differ, a desktop file's name stands for a well-known identifier.
    [[nodiscard]] virtual std::string canonicalIdentifier(const std::string& identifier) const {
        return identifier;
    }

    /// The installed application with this identifier, stored or canonical; absent where none is
    /// installed or the workspace knows of running applications only.
    [[nodiscard]] virtual std::optional<InstalledApplication>
    installedApplication(const std::string& /*bundleIdentifier*/) const {
        return std::nullopt;
    }

    /// Tells of every application that starts, that becomes regular, or that turns out to be
    /// another one than was thought.
    [[nodiscard]] virtual Subscription onLaunched(Handler handler) = 0;

    /// Tells of every application that ends, or that stops being regular.
    [[nodiscard]] virtual Subscription onTerminated(Handler handler) = 0;

    /// Tells of every application that comes to the front.
    [[nodiscard]] virtual Subscription onActivated(Handler handler) = 0;
};

} // namespace calmora
