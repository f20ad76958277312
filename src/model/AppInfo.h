// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/catalogue/KnownApps.h"
#include "platform/Image.h"
#include "platform/ProcessId.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// How far a quit of an application is that does not block, or why the application has stayed.
enum class QuitState {
    /// Nothing is known, or nothing was tried.
    none,
    quitting,
    /// It shows its user a question.
    asks,
    /// A window of its does not answer.
    doesNotAnswer,
    /// It has ended and was started again, by itself or its session.
    cameBack,
    /// We may not signal it.
    notAllowed,
};

/// Whether the state is a reason why an application has stayed.
[[nodiscard]] constexpr bool isReason(QuitState state) {
    return state != QuitState::none && state != QuitState::quitting;
}

/// One listed application, or one group row for the background applications that one application
/// started. Lists are compared by `pid`.
struct AppInfo {
    /// Of a group row: the process id of its first member.
    ProcessId pid = 0;
    std::string name = {};
    /// Of a group row: the parent application's identifier.
    std::optional<std::string> bundleIdentifier = {};
    /// Identifiers of other applications that the same process shows: protecting one of them
    /// protects the process.
    std::vector<std::string> otherBundleIdentifiers = {};
    /// Of a group row: its first member's icon.
    std::optional<Image> icon = {};
    /// Ticked for quitting the selection.
    bool isSelected = true;
    /// On the never-quit list.
    bool isWhitelisted = false;
    /// Percent of one CPU; absent until sampled.
    std::optional<double> cpuUsage = {};
    /// Mebibytes; absent until sampled.
    std::optional<double> memoryMB = {};
    /// Has no window that a user switches to, or is a group row.
    bool isBackgroundApp = false;
    /// Of a background application: the regular application that is its parent process.
    std::optional<std::string> parentBundleIdentifier = {};
    /// Of a group row: its members, in the order in which they were listed. Absent otherwise.
    std::optional<std::vector<AppInfo>> childProcesses = {};
    /// The catalogue's entry for the identifier.
    std::optional<KnownAppInfo> knownAppInfo = {};
    /// As WorkspaceApplication::candidates: its figures are their sum.
    std::vector<ProcessId> candidates = {};
    /// As WorkspaceApplication::canBeForced.
    bool canBeForced = true;
    /// As WorkspaceApplication::isActivityKnown.
    bool isActivityKnown = true;
    /// As WorkspaceApplication::desktopId. Absent of a group row.
    std::optional<std::string> desktopId = {};
    /// As WorkspaceApplication::startTime.
    std::uint64_t startTime = 0;
    /// As QuitTogether::state().
    QuitState quitState = QuitState::none;

    /// The candidates, or the only process.
    [[nodiscard]] std::vector<ProcessId> processes() const {
        return candidates.empty() ? std::vector{pid} : candidates;
    }
};

} // namespace calmora
