// SPDX-License-Identifier: MIT
#include "app/Diagnosis.h"

#include "app/Identity.h"
#include "app/LinuxMachine.h"
#include "platform/HotKeys.h"
#include "platform/linux/windows/WindowRoles.h"
#include "platform/linux/windows/WindowSystem.h"
#include "platform/qt/WindowBackend.h"
#include "support/ShownName.h"

#include <QDBusConnection>
#include <QEventLoop>
#include <QGuiApplication>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace calmora {
namespace {

std::string_view textOf(ProtectionReason reason) {
    switch (reason) {
    case ProtectionReason::firstProcesses:
        return "the first processes of the system";
    case ProtectionReason::unreadable:
        return "it cannot be read";
    case ProtectionReason::kernelThread:
        return "a thread of the kernel";
    case ProtectionReason::anotherUser:
        return "it belongs to another user";
    case ProtectionReason::ourselves:
        return "it is Calmora";
    case ProtectionReason::ourAncestor:
        return "it started Calmora";
    case ProtectionReason::display:
        return "it is part of the display: server, window manager, panel or desktop";
    case ProtectionReason::session:
        return "it leads the session";
    case ProtectionReason::busOwner:
        return "it owns an essential name on the session bus";
    case ProtectionReason::audioServer:
        return "it serves sound";
    case ProtectionReason::controlGroup:
        return "it runs among the services of the session";
    case ProtectionReason::name:
        return "a program of this name is part of the session";
    case ProtectionReason::autostart:
        return "the system starts it with every session";
    }
    return "unknown";
}

std::string_view textOf(UseKind kind) {
    switch (kind) {
    case UseKind::playsSound:
        return "plays sound";
    case UseKind::recordsSound:
        return "records sound";
    case UseKind::playsMedia:
        return "says that it plays";
    case UseKind::sharesScreen:
        return "receives the screen or a camera";
    case UseKind::inhibitsSleep:
        return "keeps the session awake";
    case UseKind::isFullScreen:
        return "is full screen";
    }
    return "unknown";
}

/// Runs the loop until the sources have answered, which is a second at most.
UseReport usesNow(UseSources& sources) {
    UseReport report{.isComplete = false};
    QEventLoop loop;
    const Subscription reading = sources.read([&](const UseReport& read) {
        report = read;
        loop.quit();
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return report;
}

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return std::string(name) + '=' + (value != nullptr ? value : "");
}

std::string aboutProcess(ProcessId process, WindowBackend& backend, LinuxMachine& machine) {
    for (const WorkspaceApplication& application : machine.workspace.runningApplications()) {
        if (application.processIdentifier == process) {
            const bool isRegular = application.activationPolicy == ActivationPolicy::regular;
            return "listed as " + application.localizedName.value_or("") + " (" +
                   application.bundleIdentifier.value_or("no identifier") +
                   (isRegular ? ")" : ", without a window that users switch to)");
        }
    }
    if (!machine.reader.details(process)) {
        return "not listed: there is no such process, or it cannot be read";
    }
    if (const auto reason = machine.guard.reason(process)) {
        return "not listed, protected: " + std::string(textOf(*reason));
    }
    const auto& windows = backend.windows().windows();
    const auto owned =
        std::ranges::count(windows, std::optional(process), &TopLevelWindow::process);
    if (isOneOfSeveralOwners(windows, process)) {
        return "listed with others: which of their windows is whose cannot be told here";
    }
    return owned > 0 ? "not listed: it has " + std::to_string(owned) +
                           " windows, but none that users switch to"
                     : "not listed: it has no window, no tray icon and no desktop entry of its own";
}

} // namespace

std::string diagnosis(WindowBackend& backend, LinuxMachine& machine,
                      const QDBusConnection& sessionBus, std::span<const ProcessId> processes) {
    std::string text;
    const auto add = [&](std::string_view what, const std::string& value) {
        text.append(what).append(": ").append(value).append("\n");
    };
    add("version", identity::version);
    add("session", variable("XDG_SESSION_TYPE") + ' ' + variable("XDG_CURRENT_DESKTOP") + ' ' +
                       variable("DISPLAY") + ' ' + variable("WAYLAND_DISPLAY"));
    add("drawn by", QGuiApplication::platformName().toStdString());
    const std::string manager = backend.windowManagerName();
    add("window manager", manager.empty() ? "none, or without a name" : manager);
    WindowSystem& windows = backend.windows();
    add("windows", (windows.isAlive() ? std::to_string(windows.windows().size()) + " known"
                                      : std::string("no connection")) +
                       (windows.coversAllWindows() ? "" : "; others may exist that are not shown"));
    const auto limit = [](const std::string& limitation) {
        return limitation.empty() ? std::string("complete") : limitation;
    };
    add("list", limit(backend.listLimitation()));
    if (const std::string exception = backend.autoQuitLimitation(); !exception.empty()) {
        add("auto-quit", exception);
    }
    add("shortcuts", limit(backend.hotKeys().limitation()));
    add("session bus", sessionBus.isConnected() ? "connected" : "none");
    const UseReport uses = usesNow(machine.uses);
    for (const ProcessUse& use : uses.uses) {
        add("in use", std::to_string(use.process) + " (" +
                          shownName(machine.reader.comm(use.process)) + ") " +
                          std::string(textOf(use.kind)));
    }
    if (!uses.isComplete) {
        add("in use", "perhaps more; somebody did not answer in time");
    }
    add("last input", uses.sinceInput ? std::to_string(uses.sinceInput->count()) + " ms ago"
                                      : std::string("not told"));
    for (const ProcessId process : processes) {
        add("process " + std::to_string(process), aboutProcess(process, backend, machine));
    }
    return text;
}

} // namespace calmora
