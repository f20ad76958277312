// SPDX-License-Identifier: MIT
#include "platform/linux/protection/ProtectionRules.h"

namespace calmora {
namespace {

SessionFacts someSession() {
    return {.self = 100,
            .user = 1000,
            .ancestors = {90, 80},
            .display = {70},
            .session = {60},
            .busOwners = {50},
            .audioServers = {40},
            .controlGroup = "/user.slice/user-1000.slice/user@1000.service/app.slice/app-x.scope"};
}

ProtectionCandidate someApplication() {
    return {.process = 4711,
            .user = 1000,
            .isKernelThread = false,
            .controlGroup = "/user.slice/user-1000.slice/session-2.scope",
            .name = "mousepad",
            .executable = "mousepad"};
}

TEST(ProtectionRules, refuseWhatTheSessionRestsOn) {
    using enum ProtectionReason;
    SessionFacts ours = someSession();
    const auto check = [&](const char* what, std::optional<ProtectionReason> expected,
                           auto change) {
        ProtectionCandidate facts = someApplication();
        change(facts);
        EXPECT_EQ(protection(facts, ours), expected) << what;
    };
    const auto withId = [](ProcessId id) {
        return [id](ProtectionCandidate& f) { f.process = id; };
    };
    const auto inGroup = [](const char* group) {
        return [group = std::string(group)](ProtectionCandidate& f) { f.controlGroup = group; };
    };
    const auto named = [](const char* name, const char* executable) {
        return [=](ProtectionCandidate& f) { f.name = name, f.executable = executable; };
    };
    check("application", std::nullopt, [](ProtectionCandidate&) {});
    check("negative id", firstProcesses, withId(-4711));
    check("kthreadd", firstProcesses, withId(2));
    check("ourselves", ourselves, withId(100));
    check("grandparent", ourAncestor, withId(80));
    check("window manager", display, withId(70));
    check("session manager", session, withId(60));
    check("portal", busOwner, withId(50));
    check("pipewire", audioServer, withId(40));
    check("unreadable", unreadable, [](ProtectionCandidate& f) { f.user.reset(); });
    check("root's", anotherUser, [](ProtectionCandidate& f) { f.user = 0; });
    check("kernel thread", kernelThread, [](ProtectionCandidate& f) { f.isKernelThread = true; });
    check("user manager", controlGroup,
          inGroup("/user.slice/user-1000.slice/user@1000.service/init.scope"));
    check("shell", controlGroup,
          inGroup("/user.slice/user-1000.slice/user@1000.service/session.slice/gnome.service"));
    for (const std::string service : {"dbus", "dbus-broker"}) {
        const std::string leaf = "session.slice/" + service + ".service";
        const std::string group = "/user.slice/user-1000.slice/user@1000.service/" + leaf;
        check("started by the bus", std::nullopt, inGroup(group.c_str()));
        check("below the bus", controlGroup, inGroup((group + "/x.scope").c_str()));
        check("the bus", name, [&](ProtectionCandidate& f) {
            f.controlGroup = group, f.name = service == "dbus" ? "dbus-daemon" : service;
        });
        check("of the system's bus", controlGroup,
              inGroup(("/system.slice/" + service + ".service").c_str()));
    }
    check("daemon", controlGroup, inGroup("/system.slice/cron.service"));
    check("look-alike group", std::nullopt, inGroup("/user.slice/my-session.slice/x.scope"));
    check("look-alike group, longer", std::nullopt, inGroup("/a/system.slices/x.scope"));
    check("no group", std::nullopt, inGroup(""));
    check("by name", name, named("xfwm4", ""));
    check("by cut name", name, named("gnome-session-b", ""));
    check("a bar of Wayland", name, named("waybar", "waybar"));
    check("by executable", name, named("renamed", "dbus-daemon"));
    check("a script by its name", name, named("applet.py", "python3"));
    check("autostarted", autostart, [](ProtectionCandidate& f) { f.isAutostarted = true; });
    check("autostarted, with a window", std::nullopt,
          [](ProtectionCandidate& f) { f.isAutostarted = f.hasRegularWindow = true; });
    check("a longer name", std::nullopt, named("openbox-theme", "openbox-theme"));
    check("a shorter name", std::nullopt, named("gnome-session-", "gnome-session-"));
    // A whole desktop in one service is no reason.
    ours.controlGroup = "/system.slice/vnc.service";
    check("in our service", std::nullopt, inGroup("/system.slice/vnc.service"));
    check("in another", controlGroup, inGroup("/system.slice/cron.service"));
}

} // namespace
} // namespace calmora
