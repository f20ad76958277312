// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace calmora {

/// How auto-quit treats an application that is inactive.
enum class IdleBehavior {
    /// Quit when inactive past the threshold.
    safeToQuit,
    /// Quit when inactive past the threshold, unless it is using the CPU.
    cautious,
    /// Never quit automatically.
    neverQuit,
};

/// Kind of application.
enum class AppCategory {
    browser,
    creative,
    devTool,
    communication,
    media,
    office,
    utility,
    systemUtility,
    cloudStorage,
    security,
    finance,
    education,
    gaming,
    reference,
    menuBarApp,
};

/// What the catalogue knows of one application.
struct KnownAppInfo {
    std::string bundleIdentifier;
    std::string displayName;
    AppCategory category = AppCategory::utility;
    IdleBehavior idleBehavior = IdleBehavior::safeToQuit;

    friend bool operator==(const KnownAppInfo&, const KnownAppInfo&) = default;
};

/// The built-in catalogue of well-known applications. Constant; readable from any thread.
/// Identifiers are compared exactly and case-sensitively.
class KnownApps {
  public:
    /// The entry of an identifier, or one made from the prefix of its vendor; a listed entry wins
    /// over its prefix. Absent for an absent identifier and where neither matches.
    /// Cost: a binary search, cheap enough for every row of every refresh.
    [[nodiscard]] static std::optional<KnownAppInfo>
    lookup(std::optional<std::string_view> bundleID);

    /// The music players that the setting neverQuitMusicApps protects.
    [[nodiscard]] static const std::set<std::string_view>& musicAppBundleIDs();
};

} // namespace calmora
