#include "autoquit/IdlePolicy.h"

#include "autoquit/catalogue/LinuxAnnex.h"

namespace calmora {

IdlePolicy idlePolicy(std::string_view identifier, const std::optional<KnownAppInfo>& known,
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
