// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Launcher.h"
#include "platform/ProcessId.h"
#include "platform/linux/launch/DetachedProgram.h"
#include "platform/linux/launch/ProgramEnvironment.h"
#include "platform/linux/xdg/DesktopEntry.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <optional>
#include <string>

namespace calmora {

class InstalledApplications;

/// What starting applications needs. References must outlive the launcher.
struct DesktopLauncherSurroundings {
    QDBusConnection sessionBus;
    const InstalledApplications& installed;
    /// What the applications get.
    Inheritance inheritance = {};
    /// Gives the token by which the next window may come to the front; empty if there is none.
    std::function<std::string()> activationToken = [] { return std::string(); };
};

/// Starts applications by their desktop files: over D-Bus where the file allows it, else its Exec
/// value, in a scope of the user's systemd where there is one. No shell takes part. Entries for
/// terminal programs are not started: they belong to the terminal that the user had them in.
/// Source: freedesktop Desktop Entry Specification, "The Exec key", "D-Bus Activation"; systemd,
/// Desktop Environment Integration.
class DesktopLauncher final : public Launcher {
  public:
    explicit DesktopLauncher(DesktopLauncherSurroundings surroundings);

    [[nodiscard]] bool canLaunch(const std::string& desktopId) override;
    bool launch(const std::string& desktopId) override;

  private:
    /// An entry's program and how to start it; absent if there is none.
    [[nodiscard]] std::optional<ProgramStart> programOf(const DesktopEntry& entry) const;
    [[nodiscard]] const DesktopEntry* usable(const std::string& desktopId) const;
    [[nodiscard]] bool maySpeakTo(const DesktopEntry& entry) const;
    void activate(const DesktopEntry& entry, const std::string& token,
                  std::optional<ProgramStart> otherwise);
    bool start(ProgramStart program, const DesktopEntry& entry);
    void putIntoScope(ProcessId process, const DesktopEntry& entry);

    DesktopLauncherSurroundings surroundings_;
    /// The user's systemd has not answered in time: it is not asked again.
    bool isManagerSilent_ = false;
    QObject context_;
};

} // namespace calmora
