#pragma once

#include "platform/Image.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// How an application was recognised, in the order in which the ways are tried.
enum class IdentityRule {
    /// A flatpak's own id, or the snap that the control group names.
    sandbox,
    /// StartupWMClass of a desktop entry.
    startupWmClass,
    /// The desktop file that the window names.
    windowHint,
    /// A desktop file named like the window's class.
    desktopIdOfClass,
    /// The systemd unit that the session started the process in.
    systemdUnit,
    /// What the launcher left in the environment.
    launchEnvironment,
    /// The program that a desktop entry starts.
    execKey,
    /// The only desktop file whose id ends in the window's class.
    desktopIdEnd,
    /// The last part of a Java program's class.
    javaClass,
    /// The only desktop entry whose name is the window's class.
    entryName,
    /// The shell script that started the process.
    parentScript,
    /// A window of another process in the same window group.
    windowGroup,
    /// Nothing: the identifier is made from the program's file.
    synthetic,
};

/// Which application a process is.
struct ApplicationIdentity {
    /// Desktop file id without ".desktop"; absent where nothing named one.
    std::optional<std::string> desktopId = {};
    /// The identifier that the catalogue, the music list and the never-quit list know, where there
    /// is one, else the desktop id, else a synthetic one that survives restarts if anything tells
    /// the program from others of its interpreter, else one of this process alone. Never empty.
    std::string bundleIdentifier = {};
    /// The identifiers of the other applications that windows of this process belong to, each once
    /// and as bundleIdentifier gives it: one process shows the documents of a whole office.
    std::vector<std::string> otherIdentifiers = {};
    /// Never empty; one line of valid UTF-8.
    std::string localizedName = {};
    /// The desktop entry's picture; names nothing where there is none.
    Image icon = {};
    /// The desktop entry's file; empty where there is none.
    std::filesystem::path entryPath = {};
    /// The program that the desktop entry starts; empty where there is none.
    std::string execKey = {};
    IdentityRule rule = IdentityRule::synthetic;
    /// A desktop entry was found, and it is in the menus of this desktop.
    bool isVisible = false;
    /// A desktop entry was found, and the session starts it by itself.
    bool isAutostart = false;

    /// The identifier by which instances are found. Two desktop ids that share a well-known
    /// identifier are two applications: a forced quit of one must not end the other.
    [[nodiscard]] const std::string& instanceIdentifier() const {
        return desktopId ? *desktopId : bundleIdentifier;
    }
};

} // namespace calmora
