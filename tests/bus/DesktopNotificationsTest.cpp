// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopNotifications.h"

#include "PrivateBus.h"

namespace calmora {
namespace {

using namespace std::chrono_literals;

constexpr auto serverName = "org.freedesktop.Notifications";
constexpr auto serverPath = "/org/freedesktop/Notifications";

TEST(DesktopNotifications, hands_each_notice_over_silently_and_escaped_where_wanted) {
    PrivateBus bus;
    QDBusConnection server = bus.connect();
    DesktopNotifications notifications(bus.connect(), "org.example.Tool");
    QStringList capabilities{"body", "body-markup"};
    ScriptedObject daemon(server, serverPath, [&](const QDBusMessage& call) {
        return call.member() == "GetCapabilities" ? QVariantList{capabilities}
                                                  : QVariantList{uint{7}};
    });

    notifications.add({"lost", "Calmora", "There is no server yet."});
    // Answered after the notice's error, so the notice is over.
    callAndWait(server, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId");
    ASSERT_TRUE(server.registerService(serverName));

    const UserNotification notice{"id", "Calmora", "Tom & <b>Jerry</b> was quit"};
    for (const QString& body : {QString("Tom &amp; &lt;b&gt;Jerry&lt;/b&gt; was quit"),
                                QString("Tom & <b>Jerry</b> was quit")}) {
        daemon.calls.clear();
        notifications.add(notice);
        EXPECT_TRUE(daemon.calls.empty()) << "nobody waits for the server";
        ASSERT_TRUE(loopUntil([&] { return daemon.count("Notify") == 1; }));
        const QVariantList arguments = daemon.calls.back().arguments();
        ASSERT_EQ(daemon.calls.back().signature(), "susssasa{sv}i");
        EXPECT_EQ(arguments.first(6), (QVariantList{"Calmora", 0U, "org.example.Tool", "Calmora",
                                                    body, QStringList()}));
        EXPECT_EQ(qdbus_cast<QVariantMap>(arguments[6]),
                  (QVariantMap{{"desktop-entry", "org.example.Tool"}, {"suppress-sound", true}}));
        capabilities = {"body"};
    }
}

TEST(DesktopNotifications, tells_what_becomes_of_a_notice_with_a_button) {
    PrivateBus bus;
    QDBusConnection server = bus.connect();
    DesktopNotifications notifications(bus.connect(), "org.example.Tool");
    std::vector<NoticeEvent> events;
    const auto show = [&] {
        events.clear();
        return notifications.show({"id", "Calmora", "A & B"}, "Keep", 1min,
                                  [&](NoticeEvent event) { events.push_back(event); });
    };
    const auto tells = [&](const std::vector<NoticeEvent>& wanted) {
        return loopUntil([&] { return events == wanted; });
    };
    Subscription missing = show();
    EXPECT_TRUE(tells({NoticeEvent::noServer}));
    ASSERT_TRUE(server.registerService(serverName));
    {
        ScriptedObject mute(server, serverPath);
        mute.isSilent = true;
        const Subscription notice = show();
        EXPECT_TRUE(tells({NoticeEvent::failed})) << "it may not have been seen";
    }
    for (const bool hasActions : {true, false}) {
        uint number = 7;
        ScriptedObject daemon(server, serverPath, [&](const QDBusMessage& call) {
            return call.member() == "GetCapabilities"
                       ? QVariantList{hasActions ? QStringList{"actions"} : QStringList()}
                       : QVariantList{number++};
        });
        std::optional notice = show();
        ASSERT_TRUE(tells({NoticeEvent::shown}));
        const QVariantList request = daemon.calls.back().arguments();
        EXPECT_EQ(request[5].toStringList(),
                  hasActions ? (QStringList{"act", "Keep"}) : QStringList());
        EXPECT_EQ(request[7].toInt(), 60'000);
        daemon.emitSignal(serverName, "ActionInvoked", {uint{6}, "act"});
        daemon.emitSignal(serverName, "ActionInvoked", {uint{7}, "default"});
        daemon.emitSignal(serverName, "ActionInvoked", {uint{7}, "act"});
        EXPECT_TRUE(tells({NoticeEvent::shown, NoticeEvent::actionChosen})) << "only its own";
        notice.reset();
        EXPECT_TRUE(loopUntil([&] { return daemon.count("CloseNotification") == 1; }));

        const auto early = std::make_unique<Subscription>(show()); // Withdrawn before the answer.
        early->reset();
        EXPECT_TRUE(loopUntil([&] { return daemon.count("CloseNotification") == 2; }));
        EXPECT_TRUE(events.empty());

        notice = show();
        ASSERT_TRUE(tells({NoticeEvent::shown}));
        daemon.emitSignal(serverName, "NotificationClosed", {uint{9}, uint{2}});
        callAndWait(server, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId");
        loopFor(20ms);
        notice.reset();
        callAndWait(server, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId");
        EXPECT_EQ(daemon.count("CloseNotification"), 2) << "the user has closed it";
    }
}

} // namespace
} // namespace calmora
