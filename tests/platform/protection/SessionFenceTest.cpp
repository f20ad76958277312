#include "platform/linux/protection/SessionFence.h"
#include "support/FileDescriptor.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>

#include <csignal>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {
namespace {

/// A process of ours that prepares itself, then waits; killed with the object.
class Child {
  public:
    explicit Child(const std::function<bool()>& prepare = [] { return true; }) {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0) {
            std::abort();
        }
        process_ = fork();
        if (process_ == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            const char result = prepare() ? '1' : '0';
            static_cast<void>(!write(ends[1], &result, 1));
            for (;;) {
                pause();
            }
        }
        const FileDescriptor in(ends[0]);
        const FileDescriptor out(ends[1]);
        char result = '0';
        isReady_ = read(ends[0], &result, 1) == 1 && result == '1';
    }

    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    ~Child() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }

    [[nodiscard]] ProcessId id() const { return process_; }

    [[nodiscard]] bool isReady() const { return isReady_; }

  private:
    pid_t process_ = -1;
    bool isReady_ = false;
};

/// Listens at a path, or at an abstract name after '@', until the process ends.
bool listenAt(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    std::size_t length = sizeof address;
    if (path.front() == '@') {
        address.sun_path[0] = '\0';
        length = offsetof(sockaddr_un, sun_path) + path.size();
    }
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    unlink(path.c_str());
    return bind(descriptor, reinterpret_cast<const sockaddr*>(&address),
                static_cast<socklen_t>(length)) == 0 &&
           listen(descriptor, 4) == 0;
}

class SessionFenceTest : public testing::Test {
  protected:
    SessionFenceTest() {
        std::string name = (std::filesystem::temp_directory_path() / "fence-XXXXXX").string();
        folder = mkdtemp(name.data());
        std::filesystem::create_directories(folder / "pulse");
        environment["XDG_RUNTIME_DIR"] = folder;
    }

    ~SessionFenceTest() override { std::filesystem::remove_all(folder); }

    SessionFence fence(std::vector<ProcessId> display = {}, std::vector<ProcessId> owners = {}) {
        return SessionFence(reader, {.display = [display] { return display; },
                                     .busOwners = [owners] { return owners; },
                                     .environment = [this](const char* name) -> const char* {
                                         const auto found = environment.find(name);
                                         return found == environment.end() ? nullptr
                                                                           : found->second.c_str();
                                     },
                                     .loginSessions = folder});
    }

    const ProcessReader reader;
    std::filesystem::path folder;
    std::map<std::string, std::string> environment;
};

TEST_F(SessionFenceTest, knowsRealProcesses) {
    using enum ProtectionReason;
    const Child application;
    const Child panel;
    const Child portal;
    const Child windowManager([] { return prctl(PR_SET_NAME, "xfwm4") == 0; });
    ASSERT_TRUE(windowManager.isReady());
    SessionFence fence = this->fence({panel.id()}, {portal.id()});
    EXPECT_EQ(fence.reason(application.id()), std::nullopt);
    EXPECT_EQ(fence.reason(panel.id()), display);
    EXPECT_EQ(fence.reason(portal.id()), busOwner);
    EXPECT_EQ(fence.reason(windowManager.id()), name);
    EXPECT_EQ(fence.reason(getpid()), ourselves);
    EXPECT_EQ(fence.reason(getppid()), ourAncestor);
    EXPECT_EQ(fence.reason(1), firstProcesses);
    EXPECT_EQ(fence.reason(1 << 22), unreadable) << "above the largest process id";
    if (getuid() == 0) {
        const Child other([] { return setuid(65534) == 0; });
        ASSERT_TRUE(other.isReady());
        EXPECT_EQ(fence.reason(other.id()), anotherUser);
    }
}

TEST_F(SessionFenceTest, findsServersByTheirSockets) {
    using enum ProtectionReason;
    const std::string pipewire = folder / "pipewire-0";
    const std::string pulse = folder / "pulse/native";
    const std::string abstract = "@fence-test-" + std::to_string(getpid());
    const Child manager([&] { return listenAt(abstract); });
    const Child second([&] { return listenAt(pulse); });
    ASSERT_TRUE(manager.isReady() && second.isReady());
    environment["SESSION_MANAGER"] = "tcp/host:1,local/host:" + abstract + ",unix/host:/nowhere";
    SessionFence fence = this->fence();
    {
        const Child first([&] { return listenAt(pipewire); });
        ASSERT_TRUE(first.isReady());
        EXPECT_EQ(fence.reason(first.id()), audioServer);
        EXPECT_EQ(fence.reason(second.id()), audioServer);
        EXPECT_EQ(fence.reason(manager.id()), session);
    }
    const Child next([&] { return listenAt(pipewire); });
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!fence.isProtected(next.id()) && std::chrono::steady_clock::now() < deadline) {
        usleep(10'000);
    }
    EXPECT_EQ(fence.reason(next.id()), audioServer) << "a server that was started again";
}

TEST_F(SessionFenceTest, findsTheLeaderOfTheLoginSession) {
    const Child leader;
    std::ofstream(folder / "c7") << "# private\nUID=0\nLEADER=" << leader.id() << "\nAUDIT=1\n";
    environment["XDG_SESSION_ID"] = "c7";
    EXPECT_EQ(fence().reason(leader.id()), ProtectionReason::session);
    environment["XDG_SESSION_ID"] = "../c7";
    EXPECT_EQ(fence().reason(leader.id()), std::nullopt);
}

TEST(SocketPeersTest, readNamesOfSockets) {
    using Paths = std::vector<std::string>;
    const std::pair<const char*, Paths> managers[] = {
        {"local/h:@/tmp/.ICE-unix/12,unix/h:/tmp/.ICE-unix/12",
         {"@/tmp/.ICE-unix/12", "/tmp/.ICE-unix/12"}},
        {"tcp/h:1234,,local/h:,local/h", {}},
        {"", {}},
    };
    for (const auto& [value, expected] : managers) {
        EXPECT_EQ(sessionManagerSockets(value), expected) << value;
    }
    const std::pair<const char*, const char*> servers[] = {
        {"unix:/run/p/native", "/run/p/native"},
        {"{abc}unix:/a tcp:b", "/a"},
        {"{broken", ""},
        {"tcp:host", ""},
        {"", ""},
    };
    for (const auto& [value, expected] : servers) {
        EXPECT_EQ(pulseServerSocket(value), expected) << value;
    }
    EXPECT_EQ(sessionLeader("LEADER=5\n"), 5);
    EXPECT_EQ(sessionLeader("OLD_LEADER=5\n"), std::nullopt);
    EXPECT_EQ(sessionLeader("UID=1\nLEADER="), std::nullopt);
}

} // namespace
} // namespace calmora
