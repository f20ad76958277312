// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/catalogue/LinuxAnnex.h"
#include "platform/Workspace.h"

#include <optional>
#include <string_view>

namespace calmora {

/// How auto-quit treats one idle application.
struct IdlePolicy {
    IdleBehavior behavior = IdleBehavior::safeToQuit;
    /// The processes that the application started count towards its use of the CPU.
    bool countsDescendants = false;

    friend bool operator==(const IdlePolicy&, const IdlePolicy&) = default;
};

/// Decides by the catalogue's entry if there is one, else by the annex, else by the installed
/// desktop entry. An application that is neither known nor installed is safe to quit.
[[nodiscard]] inline IdlePolicy idlePolicy(std::string_view identifier,
                                           const std::optional<KnownAppInfo>& known,
                                           const std::optional<InstalledApplication>& installed) {
    if (known) {
        return {known->idleBehavior, false};
    }
    // A program without a desktop entry is in the annex under the identifier made for it.
    const bool isProgramFile = identifier.starts_with("exe:");
    if (!installed && !isProgramFile) {
        return {};
    }
    if (const auto listed = annexBehavior(identifier)) {
        return {*listed, true};
    }
    if (!installed) {
        return {};
    }
    // Its window belongs to a terminal that was started for it.
    if (installed->needsTerminal) {
        return {IdleBehavior::neverQuit, true};
    }
    return {behaviorOfCategories(installed->categories), true};
}

} // namespace calmora
