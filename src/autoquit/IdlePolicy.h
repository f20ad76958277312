#pragma once

#include "autoquit/catalogue/KnownApps.h"
#include "platform/Workspace.h"

#include <optional>
#include <string_view>

namespace calmora {

/// How auto-quit treats one idle application.
struct IdlePolicy {
    IdleBehavior behavior = IdleBehavior::safeToQuit;
    /// What the application has started counts as its own use of the CPU.
    bool countsDescendants = false;

    friend bool operator==(const IdlePolicy&, const IdlePolicy&) = default;
};

/// Decides by the catalogue's entry alone where there is one, else by the annex, then by the
/// installed desktop entry. What is neither known nor installed is safe to quit.
[[nodiscard]] IdlePolicy idlePolicy(std::string_view identifier,
                                    const std::optional<KnownAppInfo>& known,
                                    const std::optional<InstalledApplication>& installed);

} // namespace calmora
