// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "support/Subscription.h"

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace calmora {

/// In which way a process is in use although its application may not have been in front for long.
enum class UseKind {
    playsSound,
    recordsSound,
    /// A media player says that it plays.
    playsMedia,
    sharesScreen,
    /// Keeps the machine from sleeping or the session from going idle.
    inhibitsSleep,
    isFullScreen,
};

/// One use of one process.
struct ProcessUse {
    ProcessId process = 0;
    UseKind kind = UseKind::playsSound;

    friend bool operator==(const ProcessUse&, const ProcessUse&) = default;
};

/// What is in use at one moment.
struct UseReport {
    /// In no order; a process can be in it several times. A helper process of an application stands
    /// for itself.
    std::vector<ProcessUse> uses = {};
    /// False if a source that runs did not answer in time: what it would have said is not known.
    bool isComplete = true;
    /// Since the user last used keyboard or pointer; absent if nobody tells.
    std::optional<std::chrono::milliseconds> sinceInput = {};
};

/// Tells what is in use. Asks nobody until it is asked, and keeps nothing open. Main thread.
class UseSources {
  public:
    virtual ~UseSources() = default;

    /// Asks all sources and calls `handler` once from the loop, within a second, unless the token
    /// ends before.
    [[nodiscard]] virtual Subscription read(std::function<void(const UseReport&)> handler) = 0;
};

} // namespace calmora
