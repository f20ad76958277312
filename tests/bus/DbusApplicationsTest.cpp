// SPDX-License-Identifier: MIT
#include "platform/desktop/DbusApplications.h"

#include "PrivateBus.h"

#include <unistd.h>

namespace calmora {
namespace {

constexpr auto itemWatcher = "org.kde.StatusNotifierWatcher";
constexpr auto watcherPath = "/StatusNotifierWatcher";

QVariantList property(const QVariant& value) {
    return {QVariant::fromValue(QDBusVariant(value))};
}

struct DbusApplicationsTest : testing::Test {
    PrivateBus bus;
    const ProcessId self = getpid();
};

TEST_F(DbusApplicationsTest, followsTheItemsOfThePanel) {
    DbusApplications applications(bus.connect());
    QDBusConnection panel = bus.connect();
    QDBusConnection item = bus.connect();
    QStringList items = {item.baseService() + "/org/example/Item"};
    ScriptedObject watcher(panel, watcherPath,
                           [&](const QDBusMessage&) { return property(items); });
    int changes = 0;
    const Subscription token =
        applications.onChanged([&] { changes += applications.ownsStatusItem(self); });

    // A panel that starts late.
    ASSERT_TRUE(panel.registerService(itemWatcher));
    EXPECT_TRUE(loopUntil([&] { return applications.ownsStatusItem(self); }));
    EXPECT_EQ(applications.statusItemProcesses(), std::vector{self});
    EXPECT_EQ(changes, 1);

    watcher.emitSignal(itemWatcher, "StatusNotifierItemUnregistered", {items.front()});
    EXPECT_TRUE(loopUntil([&] { return !applications.ownsStatusItem(self); }));

    // Another spelling, and an item that goes away together with its program.
    ASSERT_TRUE(item.registerService("org.kde.StatusNotifierItem-4711-1"));
    watcher.emitSignal(itemWatcher, "StatusNotifierItemRegistered",
                       {"org.kde.StatusNotifierItem-4711-1"});
    EXPECT_TRUE(loopUntil([&] { return applications.ownsStatusItem(self); }));
    ASSERT_TRUE(item.unregisterService("org.kde.StatusNotifierItem-4711-1"));
    EXPECT_TRUE(loopUntil([&] { return !applications.ownsStatusItem(self); }));

    // The panel itself goes.
    watcher.emitSignal(itemWatcher, "StatusNotifierItemRegistered", {items.front()});
    ASSERT_TRUE(loopUntil([&] { return applications.ownsStatusItem(self); }));
    ASSERT_TRUE(panel.unregisterService(itemWatcher));
    EXPECT_TRUE(loopUntil([&] { return !applications.ownsStatusItem(self); }));
}

TEST_F(DbusApplicationsTest, asksPlayersThatCanQuit) {
    QDBusConnection early = bus.connect();
    ASSERT_TRUE(early.registerService("org.mpris.MediaPlayer2.early"));
    ASSERT_TRUE(early.registerService("org.mpris.MediaPlayer2Look.alike"));
    bool canQuit = false;
    ScriptedObject player(early, "/org/mpris/MediaPlayer2", [&](const QDBusMessage& message) {
        return message.member() == "Get" ? property(canQuit) : QVariantList();
    });
    DbusApplications applications(bus.connect());
    ASSERT_TRUE(loopUntil([&] { return applications.isMediaPlayer(self); }));
    ASSERT_TRUE(loopUntil([&] { return player.count("Get") == 1; }));
    EXPECT_FALSE(applications.quitMediaPlayer(self)) << "it says that it cannot quit";

    player.emitSignal("org.freedesktop.DBus.Properties", "PropertiesChanged",
                      {"org.mpris.MediaPlayer2", QVariantMap{{"CanQuit", true}}, QStringList()});
    EXPECT_TRUE(loopUntil([&] { return applications.quitMediaPlayer(self); }));
    applications.flush();
    EXPECT_TRUE(loopUntil([&] { return player.count("Quit") == 1; }));

    ASSERT_TRUE(early.unregisterService("org.mpris.MediaPlayer2.early"));
    EXPECT_TRUE(loopUntil([&] { return !applications.isMediaPlayer(self); }));
    EXPECT_FALSE(applications.quitMediaPlayer(self));

    // A name that comes later.
    canQuit = true;
    ASSERT_TRUE(early.registerService("org.mpris.MediaPlayer2.late.instance7"));
    EXPECT_TRUE(loopUntil([&] { return applications.quitMediaPlayer(self); }));
    EXPECT_FALSE(applications.quitMediaPlayer(1));
}

TEST_F(DbusApplicationsTest, activatesOnlyActionsThatExist) {
    QDBusConnection program = bus.connect();
    const auto list = [](QStringList names) {
        return [names](const QDBusMessage& message) {
            return message.member() == "List" ? QVariantList{names} : QVariantList();
        };
    };
    ScriptedObject with(program, "/org/example/With", list({"about", "quit"}));
    ScriptedObject without(program, "/org/example/Without", list({"about"}));
    const ExportedActions yes{program.baseService().toStdString(), "/org/example/With"};
    const ExportedActions no{program.baseService().toStdString(), "/org/example/Without"};
    DbusApplications applications(bus.connect());

    EXPECT_FALSE(applications.activateQuit(yes)) << "not learned yet";
    applications.learnActions(yes);
    applications.learnActions(no);
    applications.learnActions({"no name", "no path"});
    EXPECT_TRUE(loopUntil([&] { return applications.activateQuit(yes); }));
    applications.flush();
    ASSERT_TRUE(loopUntil([&] { return with.count("Activate") == 1; }));
    EXPECT_EQ(with.calls.back().signature(), "sava{sv}");
    EXPECT_EQ(with.calls.back().arguments().value(0), "quit");
    EXPECT_FALSE(applications.activateQuit(no));
}

TEST_F(DbusApplicationsTest, knowsWhoCarriesTheSession) {
    DbusApplications applications(bus.connect());
    const auto isProtected = [&](qint64 process) {
        return std::ranges::count(applications.protectedProcesses(), process) == 1;
    };
    EXPECT_TRUE(loopUntil([&] { return isProtected(bus.processId()); })) << "the bus itself";
    EXPECT_FALSE(isProtected(self));
    QDBusConnection portal = bus.connect();
    int changes = 0;
    const Subscription subscription = applications.onChanged([&] { changes += isProtected(self); });
    ASSERT_TRUE(portal.registerService("org.freedesktop.impl.portal.desktop.example"));
    EXPECT_TRUE(loopUntil([&] { return isProtected(self); }));
    EXPECT_EQ(changes, 1) << "it is told at once";
    ASSERT_TRUE(portal.unregisterService("org.freedesktop.impl.portal.desktop.example"));
    EXPECT_TRUE(loopUntil([&] { return !isProtected(self); }));
}

} // namespace
} // namespace calmora
