// SPDX-License-Identifier: MIT
#include "platform/wayland/SocketClients.h"

#include "platform/linux/proc/ProcessReader.h"
#include "support/RealProcess.h"
#include "support/TempFolder.h"

#include <cstring>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace calmora {
namespace {

TEST(SocketClients, AreTheFirstHoldersOfTheirConnections) {
    const TempFolder folder;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder.path() / "socket";
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    const auto* generic = reinterpret_cast<const sockaddr*>(&address);
    const FileDescriptor listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    ASSERT_EQ(::bind(listener.get(), generic, sizeof address), 0);
    ASSERT_EQ(::listen(listener.get(), 4), 0);
    const auto connected = [&] {
        return ::connect(::socket(AF_UNIX, SOCK_STREAM, 0), generic, sizeof address);
    };
    const RealProcess stranger;
    const RealProcess plain([&] { static_cast<void>(connected()); });
    auto forked = std::make_unique<RealProcess>([&] {
        static_cast<void>(connected());
        ::usleep(30'000); // Start times have steps of ten milliseconds.
        if (::fork() == 0) {
            ::prctl(PR_SET_PDEATHSIG, 0);
            ::alarm(20);
            while (true) {
                ::pause();
            }
        }
    });
    const FileDescriptor first(::accept(listener.get(), nullptr, nullptr));
    const FileDescriptor second(::accept(listener.get(), nullptr, nullptr));
    const auto processes = [&] {
        std::vector<ProcessId> result;
        for (const SocketClient& client : socketClients(path, ProcessReader())) {
            result.push_back(client.process);
        }
        return result;
    };
    EXPECT_THAT(processes(), testing::UnorderedElementsAre(plain.id(), forked->id()));
    forked.reset();
    const std::vector<ProcessId> left = processes();
    EXPECT_EQ(left.size(), 2U) << "the child still has the connection";
    for (const ProcessId process : left) {
        ::kill(process, SIGKILL);
    }
    EXPECT_TRUE(socketClients(path + "x", ProcessReader()).empty());
}

} // namespace
} // namespace calmora
