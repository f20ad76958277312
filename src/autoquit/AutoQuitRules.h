// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/IdlePolicy.h"
#include "autoquit/SpareReason.h"
#include "platform/Platform.h"
#include "platform/UseSources.h"
#include "settings/NeverQuitList.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace calmora {

class AppSettings;
class ProcessTreeSampler;
class ResourceMonitor;
struct WorkspaceApplication;

/// How long the setting autoQuitMinutes is; absent if its seconds do not fit 64 bits.
[[nodiscard]] std::optional<std::chrono::duration<double>> autoQuitThreshold(std::int64_t minutes);

/// What an application is called in a notice.
[[nodiscard]] std::string nameOf(const WorkspaceApplication& app);

/// What auto-quit knows of one application before it looks at what the application does.
struct Standing {
    /// Why it is never quit; absent if it may be.
    std::optional<SpareReason> never = {};
    IdlePolicy policy = {};
};

/// What is in use at one moment, and what is in front.
struct UseNow {
    UseReport report;
    /// Identifier of the application in front.
    std::optional<std::string> front;
    /// How long ago the last input may be.
    std::chrono::duration<double> recently;
};

/// Decides which applications auto-quit leaves alone, for the check and for what is shown of it.
/// Cheap: made for one pass. Main thread.
class AutoQuitRules {
  public:
    /// A cautious application that uses at least this much of one CPU is not quit.
    static constexpr double busyCPUPercent = 3.0;
    /// The file manager: never quit automatically.
    static constexpr std::string_view finderBundleIdentifier = "com.apple.finder";

    /// The arguments must outlive the rules. The monitor samples cautious applications of the
    /// catalogue, the sampler, whose pass must have begun, all other cautious ones.
    AutoQuitRules(const AppSettings& settings, Platform platform, ResourceMonitor& monitor,
                  ProcessTreeSampler& sampler);

    /// By settings, catalogue, annex and desktop entry.
    [[nodiscard]] Standing standing(const WorkspaceApplication& app) const;

    /// Why an application that may be quit is left alone now; absent if it is not. Call once in a
    /// pass for each application. `use` is null unless what is in use shall be spared: then a
    /// cautious application counts with its whole process tree.
    [[nodiscard]] std::optional<SpareReason> sparedNow(const WorkspaceApplication& app,
                                                       IdlePolicy policy, const UseNow* use);

  private:
    [[nodiscard]] std::optional<SpareReason> useOfTree(const WorkspaceApplication& app,
                                                       const UseNow& use);
    [[nodiscard]] std::optional<SpareReason> busyReason(const WorkspaceApplication& app,
                                                        bool countsDescendants);

    const AppSettings& settings_;
    Platform platform_;
    NeverQuitList neverQuitApps_;
    ResourceMonitor& monitor_;
    ProcessTreeSampler& sampler_;
};

} // namespace calmora
