// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "platform/linux/proc/ProcessDetails.h"
#include "platform/linux/windows/WindowSystem.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// How an application was identified, in the order of the attempts.
enum class IdentityRule {
    /// A flatpak's id, or the snap of the control group.
    sandbox,
    /// StartupWMClass of a desktop entry.
    startupWmClass,
    /// The desktop file that the window names.
    windowHint,
    /// A desktop file with the name of the window's class.
    desktopIdOfClass,
    /// The process's systemd unit.
    systemdUnit,
    /// The launcher's environment variables.
    launchEnvironment,
    /// The program that a desktop entry starts.
    execKey,
    /// The only desktop id that ends in the window's class.
    desktopIdEnd,
    /// The last part of a Java program's class.
    javaClass,
    /// The only desktop entry whose name is the window's class.
    entryName,
    /// The shell script that started the process.
    parentScript,
    /// A window of another process in the same window group.
    windowGroup,
    /// None: the identifier is derived from the program's file.
    synthetic,
};

/// The application of a process.
struct ApplicationIdentity {
    /// Desktop file id without ".desktop"; absent if unknown.
    std::optional<std::string> desktopId = {};
    /// The well-known identifier that the catalogue, the music list and the never-quit list use,
    /// else the desktop id, else a synthetic one. That survives restarts if the program can be told
    /// from others of its interpreter; otherwise it is unique to this process. Never empty.
    std::string bundleIdentifier = {};
    /// The identifiers of other applications that own windows of this process, without duplicates,
    /// like bundleIdentifier: one office process shows several kinds of documents.
    std::vector<std::string> otherIdentifiers = {};
    /// Never empty; one line of valid UTF-8.
    std::string localizedName = {};
    /// The desktop entry's picture; empty if none.
    Image icon = {};
    /// The desktop entry's file; empty if none.
    std::filesystem::path entryPath = {};
    /// The program that the desktop entry starts; empty if none.
    std::string execKey = {};
    IdentityRule rule = IdentityRule::synthetic;
    /// Its desktop entry is in the menus of this desktop.
    bool isVisible = false;
    /// Its desktop entry is started with the session.
    bool isAutostart = false;

    /// The identifier to find instances by. Two desktop ids with the same well-known identifier are
    /// two applications: a forced quit of one must not end the other.
    [[nodiscard]] const std::string& instanceIdentifier() const {
        return desktopId ? *desktopId : bundleIdentifier;
    }
};

/// Everything that identifies a process's application.
struct ApplicationFacts {
    ProcessDetails process = {};
    /// Absent if gone or unreadable.
    std::optional<ProcessDetails> parent = {};
    /// The windows of the process, oldest first, transient ones included.
    std::vector<TopLevelWindow> windows = {};
    /// Windows of other processes in the same window groups, oldest first.
    std::vector<TopLevelWindow> groupWindows = {};
};

} // namespace calmora
