// SPDX-License-Identifier: MIT
#include "platform/wayland/SocketClients.h"

#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/protection/SocketPeers.h"
#include "support/RealProcess.h"
#include "support/Sockets.h"
#include "support/TempFolder.h"

#include <sys/prctl.h>

namespace calmora {
namespace {

TEST(SocketClients, AreTheFirstHoldersOfTheirConnections) {
    const TempFolder folder;
    const std::string path = folder.path() / "socket";
    const FileDescriptor listener = listeningAt(path);
    const auto connect = [&] { static const FileDescriptor connection = connectedTo(path); };
    const RealProcess stranger;
    const RealProcess plain(connect);
    auto forked = std::make_unique<RealProcess>([&] {
        connect();
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
