#include "platform/qt/single_instance/SingleInstance.h"

#include "PrivateBus.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <atomic>
#include <fstream>
#include <string>
#include <thread>

namespace calmora {
namespace {

constexpr auto id = "org.example.The-Program";
const QDBusConnection noBus("no such connection");

/// Starts the program a second time, elsewhere; whether it came first.
bool startAgain(const QDBusConnection& bus, const std::filesystem::path& folder) {
    std::atomic<bool> isFirst = false;
    std::atomic<bool> isDone = false;
    std::thread other([&] {
        isFirst = SingleInstance(bus, id, folder).isFirst();
        isDone = true;
    });
    EXPECT_TRUE(waitFor([&] { return isDone.load(); }));
    other.join();
    return isFirst;
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
        EXPECT_TRUE(waitFor([&] { return activations == 1; })) << "a start before the listener";
        EXPECT_FALSE(startAgain(bus.connect(), folder.path().toStdString()));
        EXPECT_TRUE(waitFor([&] { return activations == 2; }));

        const auto call = [&](const char* method, const QVariantList& arguments) {
            return callAndWait(bus.connect(), id, "/org/example/The_Program",
                               "org.freedesktop.Application", method, arguments)
                .type();
        };
        EXPECT_EQ(call("Open", {QStringList{"file:///x"}, QVariantMap()}),
                  QDBusMessage::ReplyMessage);
        EXPECT_EQ(call("Quit", {}), QDBusMessage::ErrorMessage);
        EXPECT_TRUE(waitFor([&] { return activations == 3; }));
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
        EXPECT_FALSE(startAgain(noBus, runtime));
        EXPECT_TRUE(waitFor([&] { return activations == 2; }));
    }
    EXPECT_TRUE(SingleInstance(noBus, id, runtime).isFirst()) << "after the end of the first";
}

TEST(SingleInstanceTest, startsWhereNothingCanBeProven) {
    EXPECT_TRUE(SingleInstance(noBus, id, "/no/such/folder").isFirst());
    EXPECT_TRUE(SingleInstance(noBus, id, {}).isFirst());
}

} // namespace
} // namespace calmora
