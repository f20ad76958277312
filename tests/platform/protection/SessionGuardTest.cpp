// SPDX-License-Identifier: MIT
#include "platform/linux/protection/SessionGuard.h"

#include "platform/linux/proc/LinuxClock.h"
#include "support/RealProcess.h"
#include "support/Sockets.h"
#include "support/TempFolder.h"

#include <sys/prctl.h>
#include <unistd.h>

namespace calmora {
namespace {

/// Listens there until the process ends.
void listenAt(const std::string& path) {
    static const FileDescriptor listener = listeningAt(path);
}

class SessionGuardTest : public testing::Test {
  protected:
    SessionGuardTest() {
        std::filesystem::create_directories(folder / "pulse");
        environment["XDG_RUNTIME_DIR"] = folder;
    }

    SessionGuard guarded(std::vector<ProcessId> display = {}, std::vector<ProcessId> owners = {}) {
        const auto variable = [this](const std::string& name) {
            return environment.contains(name) ? environment[name].c_str() : nullptr;
        };
        return SessionGuard(reader, clock,
                            {.display = [display] { return display; },
                             .busOwners = [owners] { return owners; },
                             .environment = variable,
                             .loginSessions = folder});
    }

    const LinuxClock clock;
    const ProcessReader reader;
    const TempFolder temporary;
    const std::filesystem::path& folder = temporary.path();
    std::map<std::string, std::string> environment;
};

TEST_F(SessionGuardTest, knowsRealProcesses) {
    using enum ProtectionReason;
    const RealProcess application;
    const RealProcess panel;
    const RealProcess portal;
    const RealProcess windowManager([] { prctl(PR_SET_NAME, "xfwm4"); });
    SessionGuard guard = guarded({panel.id()}, {portal.id()});
    EXPECT_EQ(guard.reason(application.id()), std::nullopt);
    EXPECT_EQ(guard.reason(panel.id()), display);
    EXPECT_EQ(guard.reason(portal.id()), busOwner);
    EXPECT_EQ(guard.reason(windowManager.id()), name);
    EXPECT_EQ(guard.reason(getpid()), ourselves);
    EXPECT_EQ(guard.reason(getppid()), ourAncestor);
    EXPECT_EQ(guard.reason(1), firstProcesses);
    EXPECT_EQ(guard.reason(1 << 22), unreadable) << "above the largest process id";
    if (getuid() == 0) {
        const RealProcess other([] { setuid(calmora::nobody) == 0 ? void() : _exit(1); });
        EXPECT_EQ(guard.reason(other.id()), anotherUser);
    }
}

TEST_F(SessionGuardTest, readsTheSessionAgainBeforeASignal) {
    const RealProcess panel;
    std::vector<ProcessId> display;
    SessionGuard guard(reader, clock, {.display = [&] { return display; }});
    EXPECT_FALSE(guard.isProtected(panel.id()));
    display = {panel.id()};
    EXPECT_TRUE(guard.isProtectedNow(panel.id()));
}

TEST_F(SessionGuardTest, findsServersByTheirSockets) {
    using enum ProtectionReason;
    const std::string pipewire = folder / "pipewire-0";
    const std::string pulse = folder / "pulse/native";
    const std::string abstract = "@guard-test-" + std::to_string(getpid());
    const RealProcess manager([&] { listenAt(abstract); });
    const RealProcess second([&] { listenAt(pulse); });
    environment["SESSION_MANAGER"] = "tcp/host:1,local/host:" + abstract + ",unix/host:/nowhere";
    SessionGuard guard = guarded();
    {
        const RealProcess first([&] { listenAt(pipewire); });
        EXPECT_EQ(guard.reason(first.id()), audioServer);
        EXPECT_EQ(guard.reason(second.id()), audioServer);
        EXPECT_EQ(guard.reason(manager.id()), session);
    }
    const RealProcess next([&] { listenAt(pipewire); });
    EXPECT_TRUE(waitFor([&] { return guard.isProtected(next.id()); }));
    EXPECT_EQ(guard.reason(next.id()), audioServer) << "a server that was started again";
}

TEST_F(SessionGuardTest, findsTheLeaderOfTheLoginSession) {
    const RealProcess leader;
    std::ofstream(folder / "c7") << "# private\nUID=0\nLEADER=" << leader.id() << "\nAUDIT=1\n";
    environment["XDG_SESSION_ID"] = "c7";
    EXPECT_EQ(guarded().reason(leader.id()), ProtectionReason::session);
    environment["XDG_SESSION_ID"] = "../c7";
    EXPECT_EQ(guarded().reason(leader.id()), std::nullopt);
}

TEST(SocketPeersTest, readNamesOfSockets) {
    using Paths = std::vector<std::string>;
    EXPECT_EQ(sessionManagerSockets("local/h:@/tmp/.ICE-unix/12,unix/h:/tmp/.ICE-unix/12"),
              (Paths{"@/tmp/.ICE-unix/12", "/tmp/.ICE-unix/12"}));
    EXPECT_EQ(sessionManagerSockets("tcp/h:1234,,local/h:,local/h"), Paths{});
    const std::pair<const char*, const char*> servers[] = {
        {"unix:/run/p/native", "/run/p/native"},
        {"{abc}unix:/a tcp:b", "/a"},
        {"{broken", ""},
        {"tcp:host", ""},
    };
    for (const auto& [value, expected] : servers) {
        EXPECT_EQ(pulseServerSocket(value), expected) << value;
    }
    EXPECT_EQ(sessionLeader("OLD_LEADER=5\n"), std::nullopt);
    EXPECT_EQ(sessionLeader("UID=1\nLEADER="), std::nullopt);
}

} // namespace
} // namespace calmora
