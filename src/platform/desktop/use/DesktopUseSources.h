// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UseSources.h"
#include "platform/desktop/use/SystemBus.h"
#include "platform/desktop/use/UseOwners.h"

#include <QDBusConnection>

#include <string>

namespace calmora {

class WindowSystem;

/// What DesktopUseSources reads from. All of it must outlive the sources.
struct UseSurroundings {
    QDBusConnection sessionBus;
    BusOnDemand systemBus;
    WindowSystem& windows;
    const ProcessReader& reader;
    /// The running applications of now.
    std::function<ApplicationSnapshot()> running;
    /// Under which the sound server shows us.
    std::string applicationName;
};

/// Reads the sound server, the media players, what inhibits sleep, and the windows.
class DesktopUseSources final : public UseSources {
  public:
    explicit DesktopUseSources(UseSurroundings surroundings);

    /// What windows and the sound server's library cost is waited for: a few round trips.
    [[nodiscard]] Subscription read(std::function<void(const UseReport&)> handler) override;

  private:
    UseSurroundings surroundings_;
    UseOwners owners_;
};

} // namespace calmora
