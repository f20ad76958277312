// SPDX-License-Identifier: MIT
#include "platform/gnome/ExtensionRules.h"

#include <algorithm>
#include <charconv>

namespace calmora {
namespace {

constexpr auto olderExtension = ownExtensions[0];
constexpr auto newerExtension = ownExtensions[1];
constexpr int firstShell = 43;
constexpr int firstWithModules = 45;

bool contains(const std::vector<std::string>& list, const std::string& name) {
    return std::ranges::find(list, name) != list.end();
}

} // namespace

std::string extensionFor(std::string_view shellVersion) {
    int major = 0;
    std::from_chars(shellVersion.data(), shellVersion.data() + shellVersion.size(), major);
    if (major < firstShell) {
        return {};
    }
    return major < firstWithModules ? olderExtension : newerExtension;
}

ExtensionVerdict extensionVerdict(const ExtensionFacts& facts) {
    using State = DesktopExtension::State;
    const std::string wanted = extensionFor(facts.shellVersion);
    const std::string other = wanted == olderExtension ? newerExtension : olderExtension;
    if (facts.isAttached) {
        return {State::running};
    }
    if (wanted.empty() || !facts.isInstalled) {
        return {State::none};
    }
    if (!facts.mayEnable) {
        return {State::forbidden};
    }
    if (contains(facts.enabled, wanted)) {
        // The shell loads it, or has tried to.
        return {facts.isKnown ? State::none : State::awaitsLogin};
    }
    const bool wasUpgraded = contains(facts.enabled, other) && !contains(facts.disabled, wanted);
    if (wasUpgraded || facts.answer == ExtensionAnswer::awaitsLogin) {
        return {facts.isKnown ? State::none : State::awaitsLogin, facts.isKnown};
    }
    return {facts.answer == ExtensionAnswer::none ? State::offered : State::declined};
}

} // namespace calmora
