// SPDX-License-Identifier: MIT
#include "platform/desktop/single_instance/SingleInstance.h"

#include "PrivateBus.h"

#include <future>

namespace calmora {
namespace {

using namespace std::chrono_literals;

constexpr auto id = "org.example.The-Program";
const QDBusConnection noBus("no such connection");

/// Starts the program a second time, elsewhere; whether it came first.
bool startAgain(const QDBusConnection& bus, const std::filesystem::path& folder) {
    auto other =
        std::async(std::launch::async, [&] { return SingleInstance(bus, id, folder).isFirst(); });
    EXPECT_TRUE(loopUntil([&] { return other.wait_for(0s) == std::future_status::ready; }));
    return other.get();
}

TEST(SingleInstanceTest, isProvenByTheNameOnTheBus) {
    PrivateBus bus;
    const QTemporaryDir folder;
    QDBusConnection own = bus.connect();
    {
        SingleInstance first(own, id, folder.path().toStdString());
        ASSERT_TRUE(first.isFirst());
        int activations = 0;
        EXPECT_FALSE(startAgain(bus.connect(), folder.path().toStdString()));
        const Subscription token = first.onActivated([&] { ++activations; });
        EXPECT_TRUE(loopUntil([&] { return activations == 1; })) << "a start before the listener";
        EXPECT_FALSE(startAgain(bus.connect(), folder.path().toStdString()));
        EXPECT_TRUE(loopUntil([&] { return activations == 2; }));
    }
    ASSERT_TRUE(own.unregisterService(id));
    EXPECT_TRUE(SingleInstance(bus.connect(), id, folder.path().toStdString()).isFirst());
}

TEST(SingleInstanceTest, isProvenByALockWithoutABus) {
    const QTemporaryDir folder;
    // A folder whose name is longer than the address of a socket.
    const std::filesystem::path runtime = folder.filePath(QString(120, 'x')).toStdString();
    std::filesystem::create_directory(runtime);
    std::ofstream(runtime / (std::string(id) + ".socket")) << "left behind";
    {
        SingleInstance first(noBus, id, runtime);
        ASSERT_TRUE(first.isFirst());
        int activations = 0;
        const Subscription token = first.onActivated([&] { ++activations; });
        EXPECT_FALSE(startAgain(noBus, runtime));
        EXPECT_TRUE(loopUntil([&] { return activations == 1; }));
    }
    EXPECT_TRUE(SingleInstance(noBus, id, runtime).isFirst()) << "after the end of the first";
    EXPECT_TRUE(SingleInstance(noBus, id, "/no/such/folder").isFirst()) << "nothing can be proven";
}

} // namespace
} // namespace calmora
