// SPDX-License-Identifier: MIT
#include "platform/desktop/single_instance/SingleInstance.h"

#include "PrivateBus.h"

#include <future>

#include <poll.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;

constexpr auto id = "org.example.The-Program";
const QDBusConnection noBus("no such connection");

using State = SingleInstance::State;

/// What becomes of a start elsewhere, of which the first instance hears in its loop.
State startAgain(const QDBusConnection& bus, const QTemporaryDir& folder) {
    auto other = std::async(std::launch::async, [&] {
        RuntimeLock lock(folder.path().toStdString(), id);
        if (lock.askHolder(SingleInstance::timeout)) {
            return State::shownElsewhere;
        }
        return SingleInstance(bus, id, std::move(lock)).state();
    });
    EXPECT_TRUE(loopUntil([&] { return other.wait_for(0s) == std::future_status::ready; }));
    return other.get();
}

TEST(SingleInstanceTest, isProvenByTheNameOnTheBusAndByTheLock) {
    PrivateBus bus;
    PrivateBus laterBus;
    const QTemporaryDir folder;
    const QTemporaryDir otherFolder;
    QDBusConnection own = bus.connect();
    {
        SingleInstance first(own, id, RuntimeLock(folder.path().toStdString(), id));
        ASSERT_EQ(first.state(), State::first);
        int activations = 0;
        EXPECT_EQ(startAgain(bus.connect(), otherFolder), State::shownElsewhere);
        const Subscription token = first.onActivated([&] { ++activations; });
        EXPECT_TRUE(loopUntil([&] { return activations == 1; })) << "a start before the listener";
        int expected = 1;
        for (const auto& [where, lock] : {std::pair(bus.connect(), &otherFolder),
                                          {laterBus.connect(), &folder},
                                          {noBus, &folder}}) {
            EXPECT_EQ(startAgain(where, *lock), State::shownElsewhere);
            EXPECT_TRUE(loopUntil([&] { return activations == expected + 1; }));
            ++expected;
        }
    }
    ASSERT_TRUE(own.unregisterService(id));
    EXPECT_EQ(
        SingleInstance(bus.connect(), id, RuntimeLock(folder.path().toStdString(), id)).state(),
        State::first);
}

TEST(SingleInstanceTest, takesANameOfAnotherProgramForNoInstance) {
    PrivateBus bus;
    QDBusConnection squatter = bus.connect();
    ASSERT_TRUE(squatter.registerService(id));
    const SingleInstance first(bus.connect(), id, RuntimeLock("/no/such/folder", id));
    EXPECT_EQ(first.state(), State::first);
    EXPECT_TRUE(first.isNameTaken());
}

TEST(RuntimeLockTest, isAskedForNoLongerThanItMay) {
    const QTemporaryDir folder;
    // A folder whose name is longer than the address of a socket.
    const std::filesystem::path runtime = folder.filePath(QString(120, 'x')).toStdString();
    std::filesystem::create_directory(runtime);
    std::ofstream(runtime / (std::string(id) + ".socket")) << "left behind";
    auto holder = std::make_unique<RuntimeLock>(runtime, id);
    RuntimeLock other(runtime, id);
    for (int start = 0; start < 20; ++start) { // More than its queue takes.
        EXPECT_FALSE(other.askHolder(1ms)) << "it does not answer, as a stopped process";
        EXPECT_TRUE(other.isHeldElsewhere());
    }
    while (holder->acceptAttempt()) {
    }
    auto asking = std::async(std::launch::async, [&] { return other.askHolder(10s); });
    EXPECT_TRUE(loopUntil([&] { return holder->acceptAttempt(); }));
    EXPECT_TRUE(asking.get());
    asking = std::async(std::launch::async, [&] { return other.askHolder(10s); });
    pollfd attempt{holder->descriptor(), POLLIN, 0};
    EXPECT_EQ(poll(&attempt, 1, 5000), 1);
    holder.reset();
    EXPECT_FALSE(asking.get());
    EXPECT_FALSE(other.isHeldElsewhere()) << "it ended, so the next one takes its place";
    EXPECT_FALSE(RuntimeLock("/no/such/folder", id).isHeldElsewhere()) << "nothing can be proven";
}

} // namespace
} // namespace calmora
