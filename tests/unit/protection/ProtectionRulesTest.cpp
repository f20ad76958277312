#include "platform/linux/protection/ProtectionRules.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

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

struct Case {
    const char* name;
    ProtectionCandidate process;
    std::optional<ProtectionReason> expected;
};

std::vector<Case> cases() {
    using enum ProtectionReason;
    std::vector<Case> all;
    const auto add = [&](const char* name, std::optional<ProtectionReason> expected, auto change) {
        ProtectionCandidate facts = someApplication();
        change(facts);
        all.push_back({name, std::move(facts), expected});
    };
    const auto withId = [](ProcessId id) {
        return [id](ProtectionCandidate& f) { f.process = id; };
    };
    const auto inGroup = [](const char* group) {
        return [group](ProtectionCandidate& f) { f.controlGroup = group; };
    };
    const auto named = [](const char* name, const char* executable) {
        return [=](ProtectionCandidate& f) { f.name = name, f.executable = executable; };
    };
    add("application", std::nullopt, [](ProtectionCandidate&) {});
    add("negative id", firstProcesses, withId(-4711));
    add("kthreadd", firstProcesses, withId(2));
    add("ourselves", ourselves, withId(100));
    add("grandparent", ourAncestor, withId(80));
    add("window manager", display, withId(70));
    add("session manager", session, withId(60));
    add("portal", busOwner, withId(50));
    add("pipewire", audioServer, withId(40));
    add("unreadable", unreadable, [](ProtectionCandidate& f) { f.user.reset(); });
    add("root's", anotherUser, [](ProtectionCandidate& f) { f.user = 0; });
    add("kernel thread", kernelThread, [](ProtectionCandidate& f) { f.isKernelThread = true; });
    add("user manager", controlGroup,
        inGroup("/user.slice/user-1000.slice/user@1000.service/init.scope"));
    add("shell", controlGroup,
        inGroup("/user.slice/user-1000.slice/user@1000.service/session.slice/gnome.service"));
    add("daemon", controlGroup, inGroup("/system.slice/cron.service"));
    add("look-alike group", std::nullopt, inGroup("/user.slice/my-session.slice/x.scope"));
    add("look-alike group, longer", std::nullopt, inGroup("/a/system.slices/x.scope"));
    add("no group", std::nullopt, inGroup(""));
    add("by name", name, named("xfwm4", ""));
    add("by cut name", name, named("gnome-session-b", ""));
    add("by executable", name, named("renamed", "dbus-daemon"));
    add("a longer name", std::nullopt, named("openbox-theme", "openbox-theme"));
    add("a shorter name", std::nullopt, named("gnome-session-", "gnome-session-"));
    return all;
}

TEST(ProtectionRules, refuseWhatTheSessionRestsOn) {
    for (const Case& c : cases()) {
        EXPECT_EQ(protection(c.process, someSession()), c.expected) << c.name;
    }
}

TEST(ProtectionRules, aWholeDesktopInOneServiceIsNoReason) {
    SessionFacts session = someSession();
    session.controlGroup = "/system.slice/vnc.service";
    ProtectionCandidate process = someApplication();
    process.controlGroup = "/system.slice/vnc.service";
    EXPECT_EQ(protection(process, session), std::nullopt);
    process.controlGroup = "/system.slice/cron.service";
    EXPECT_EQ(protection(process, session), ProtectionReason::controlGroup);
}

} // namespace
} // namespace calmora
