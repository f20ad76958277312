// SPDX-License-Identifier: MIT
// What may be at the path of SWAYSOCK beside sway.
#include "platform/wayland/SwayWindowSystem.h"

#include "platform/linux/EventPoll.h"
#include "support/Sockets.h"
#include "support/TempFolder.h"
#include "support/Waiting.h"

#include <cstring>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;

constexpr auto oneWindow = R"({"type":"root","nodes":[{"id":5,"shell":"xdg_shell","pid":1}]})";

std::string swayMessage(std::uint32_t type, const std::string& payload, std::uint32_t length = 0) {
    length = length == 0 ? static_cast<std::uint32_t>(payload.size()) : length;
    std::string bytes = "i3-ipc";
    bytes.append(reinterpret_cast<const char*>(&length), sizeof length);
    bytes.append(reinterpret_cast<const char*>(&type), sizeof type);
    return bytes + payload;
}

/// Listens at a path, and gives each client the bytes that `answer` makes of its request's type;
/// then it hangs up or, where `stays`, waits for the client to do so.
class SwayServer {
  public:
    using Answer = std::function<std::string(std::uint32_t)>;

    SwayServer(const std::string& path, Answer answer, bool stays) : listener_(listeningAt(path)) {
        thread_ = std::thread([this, answer = std::move(answer), stays] {
            while (true) {
                const FileDescriptor client(::accept(listener_.get(), nullptr, nullptr));
                if (!client) {
                    return;
                }
                std::array<char, 14> header{};
                ::recv(client.get(), header.data(), header.size(), MSG_WAITALL);
                std::uint32_t type = 0;
                std::memcpy(&type, &header[10], sizeof type);
                const std::string bytes = answer(type);
                ::send(client.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
                std::array<char, 64> rest{};
                while (stays && ::recv(client.get(), rest.data(), rest.size(), 0) > 0) {
                }
            }
        });
    }

    ~SwayServer() {
        ::shutdown(listener_.get(), SHUT_RDWR);
        thread_.join();
    }

  private:
    FileDescriptor listener_;
    std::thread thread_;
};

TEST(SwaySocket, IsNeverWaitedForLong) {
    const std::string event = swayMessage(0x80000003, R"({"change":"new"})");

    const struct {
        const char* what;
        SwayServer::Answer answer;
        bool stays;
        bool isAlive;
    } cases[] = {
        {"hangs up", [](auto) { return ""; }, false, false},
        {"is silent", [](auto) { return ""; }, true, false},
        {"speaks something else", [](auto) { return std::string(5000, '!'); }, true, false},
        {"says half", [](auto type) { return swayMessage(type, oneWindow, 4000); }, true, false},
        {"announces too much", [](auto type) { return swayMessage(type, oneWindow, 1U << 31U); },
         true, false},
        {"sends no tree", [](auto type) { return swayMessage(type, "[]"); }, true, false},
        {"gives other answers first",
         [&](auto type) { return event + swayMessage(type, oneWindow); }, true, true},
    };

    int number = 0;
    for (const auto& test : cases) {
        const TempFolder folder;
        const std::string path = folder.path() / std::to_string(++number);
        SwayServer server(path, test.answer, test.stays);
        EventPoll events;
        const auto start = std::chrono::steady_clock::now();
        SwayWindowSystem sway(events, path, 100ms);
        EXPECT_EQ(sway.isAlive(), test.isAlive) << test.what;
        EXPECT_EQ(sway.windows().size(), test.isAlive ? 1U : 0U) << test.what;
        EXPECT_LT(std::chrono::steady_clock::now() - start, 5s) << test.what;
    }
}

TEST(SwaySocket, MayBeNoneOrStopToAnswer) {
    const TempFolder folder;
    const std::string fifo = folder.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    EventPoll events;
    for (const std::string& path :
         {fifo, folder.path().string() + "/none", std::string(500, 'x'), std::string()}) {
        EXPECT_FALSE(SwayWindowSystem(events, path).isAlive()) << path;
    }

    // One that stops to answer is waited for once, and nothing is decided by what it said before.
    const std::string path = folder.path() / "socket";
    std::atomic<bool> answers = true;
    const SwayServer server(
        path, [&](auto type) { return answers ? swayMessage(type, oneWindow) : std::string(); },
        true);
    SwayWindowSystem sway(events, path, 100ms);
    EXPECT_TRUE(sway.coversAllWindows());
    answers = false;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(sway.windowsReadAfresh().size(), 1U);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
    EXPECT_FALSE(sway.coversAllWindows());
    EXPECT_FALSE(sway.requestClose(5, 1));
    answers = true;
    EXPECT_TRUE(waitFor([&] {
        static_cast<void>(sway.windows());
        return sway.coversAllWindows();
    }));
}

} // namespace
} // namespace calmora
