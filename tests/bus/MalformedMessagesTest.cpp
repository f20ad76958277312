// SPDX-License-Identifier: MIT
#include "fakes/FakeLocalizedStrings.h"
#include "fakes/FakeWindowSystem.h"
#include "platform/desktop/DbusApplications.h"
#include "platform/desktop/DesktopColorScheme.h"
#include "platform/desktop/DesktopNotifications.h"
#include "platform/desktop/single_instance/SingleInstance.h"
#include "platform/desktop/status/QtStatusItem.h"
#include "platform/desktop/use/DesktopUseSources.h"
#include "platform/desktop/use/SessionAwayTime.h"
#include "platform/gnome/backend/ShellLink.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/wayland/kwin/KwinScripts.h"

#include "PrivateBus.h"

#include <unistd.h>

namespace calmora {
namespace {

constexpr auto properties = "org.freedesktop.DBus.Properties";
constexpr auto player = "org.mpris.MediaPlayer2";
constexpr auto playerPath = "/org/mpris/MediaPlayer2";
constexpr auto panelName = "org.kde.StatusNotifierWatcher";
constexpr auto panelPath = "/StatusNotifierWatcher";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";

template <typename Value>
QVariant wrapped(const Value& value) {
    return QVariant::fromValue(QDBusVariant(QVariant::fromValue(value)));
}

/// Arguments for messages to every member of ours, each wrong for all of them but a few.
std::vector<QVariantList> manyKinds() {
    registerStatusTypes();
    QVariant deep = wrapped(0);
    for (int i = 0; i < 12; ++i) {
        deep = wrapped(QVariantMap{{"deeper", deep}});
    }
    const QVariant text = player;
    const QVariant names = QStringList{"quit", player};
    const QVariant ids = QVariant::fromValue(QList<int>{0, 1});
    const QVariant events = QVariant::fromValue(QList<DbusMenuEvent>{{0, "opened"}});
    QVariantList values{1, 1U, true, 1.5, text, names, ids, events, deep, QByteArray("bytes")};
    values += {wrapped(ids),
               wrapped(names),
               wrapped(true),
               QVariant(QVariantList{1, "x"}),
               QVariantMap{{"CanQuit", QVariantList{1}}},
               QVariant::fromValue(QList<DbusMenuProperties>{{0, {{"x", 1}}}}),
               QVariant::fromValue(DbusToolTip{"x", {{1, 1, "abcd"}}, "y", "z"})};
    std::vector<QVariantList> kinds{{}, {0, 0, 0, 0}, {0, text, deep, text}};
    for (const QVariant& value : values) {
        kinds.push_back({value});
        kinds.push_back({text, value, names});
    }
    return kinds;
}

constexpr auto menu = MenuObject::path;
constexpr auto menuFace = MenuObject::interfaceName;
constexpr auto icon = NotifierItem::path;
constexpr auto iconFace = NotifierItem::interfaceName;
constexpr auto program = "/org/example/Tool";
constexpr auto programFace = ApplicationObject::interfaceName;

/// Every method of ours.
const struct {
    const char* path;
    const char* interface;
    QStringList methods;
} objects[] = {
    {menu,
     menuFace,
     {"GetLayout", "GetGroupProperties", "GetProperty", "Event", "EventGroup", "AboutToShow",
      "AboutToShowGroup"}},
    {menu, properties, {"Get", "GetAll", "Set"}},
    {icon,
     iconFace,
     {"Activate", "ContextMenu", "SecondaryActivate", "Scroll", "ProvideXdgActivationToken"}},
    {icon, properties, {"Get", "GetAll", "Set"}},
    {program, programFace, {"Open", "ActivateAction"}},
    {KwinScripts::path, KwinScripts::interfaceName, {"Report"}},
};

struct MalformedMessages : testing::Test {
    PrivateBus bus;
    QDBusConnection own = bus.connect();
    QDBusConnection other = bus.connect();
    const ProcessId self = getpid();
    const std::vector<QVariantList> kinds = manyKinds();
};

TEST_F(MalformedMessages, DoNothingAsCalls) {
    FakeLocalizedStrings strings;
    int done = 0;
    QtStatusItem item(own, "org.example.Tool", strings);
    item.setMenu([&] { return std::vector<StatusMenuItem>{{"Quit", "q", true, [&] { ++done; }}}; });
    item.setAction([&](StatusEvent) { ++done; });
    ApplicationObject application(
        own, "org.example.Tool", [&] { ++done; }, [&](const QString&) { ++done; });
    KwinScripts scripts(own, [&](const KwinReport&) { ++done; });
    scripts.setKwin(other.baseService());
    std::vector<QVariantList> all = kinds;
    const QVariant endless = QVariant::fromValue(QList<int>(200'000, 0));
    all.insert(all.end(), {{endless}, {endless, QStringList()}});
    for (const auto& object : objects) {
        for (const QString& method : object.methods) {
            std::vector<QDBusPendingCall> calls;
            for (const QVariantList& arguments : all) {
                QDBusMessage call = QDBusMessage::createMethodCall(own.baseService(), object.path,
                                                                   object.interface, method);
                call.setArguments(arguments);
                calls.push_back(other.asyncCall(call));
            }
            for (const QDBusPendingCall& call : calls) {
                ASSERT_TRUE(loopUntil([&] { return call.isFinished(); })) << method.toStdString();
            }
        }
    }
    EXPECT_EQ(done, 0);
    callAndWait(other, own.baseService(), program, programFace, "Activate", {QVariantMap()});
    EXPECT_TRUE(loopUntil([&] { return done == 1; })) << "a right call after all the wrong ones";
}

TEST_F(MalformedMessages, AreIgnoredAsSignals) {
    ScriptedObject object(other, playerPath, [](const QDBusMessage& call) {
        return call.member() == "Get" ? QVariantList{wrapped(false)} : QVariantList();
    });
    ASSERT_TRUE(other.registerService(QString(player) + ".one"));
    DbusApplications applications(own);
    DesktopColorScheme scheme(own);
    ASSERT_TRUE(loopUntil([&] { return object.count("Get") == 1; }));

    ScriptedObject panel(other, panelPath);
    ScriptedObject portal(other, portalPath);
    ScriptedObject shell(other, ShellLink::path,
                         [](auto&&) { return QVariantList{QVariantMap()}; });
    ASSERT_TRUE(other.registerService("org.gnome.Shell"));
    ASSERT_TRUE(other.registerService(ShellLink::service));
    ShellLink link(own);
    ASSERT_TRUE(loopUntil([&] { return link.isAttached(); }));
    for (const QVariantList& arguments : kinds) {
        object.emitSignal(properties, "PropertiesChanged", arguments);
        panel.emitSignal(panelName, "StatusNotifierItemRegistered", arguments);
        panel.emitSignal(panelName, "StatusNotifierItemUnregistered", arguments);
        portal.emitSignal("org.freedesktop.portal.Settings", "SettingChanged", arguments);
        for (const char* name : {"WindowsChanged", "FocusChanged", "IconActivated", "MenuOpened",
                                 "MenuActivated", "KeyPressed", "PressedOutside"}) {
            shell.emitSignal(ShellLink::interfaceName, name, arguments);
        }
    }
    // Windows that do not tell their number, type, or whether they are of X11; and one that does.
    const QVariantMap unclear{{"id", qulonglong{1}}, {"type", 0U}, {"x11", "no"}};
    const QVariantMap window{{"id", qulonglong{2}}, {"type", 0U}, {"x11", true}};
    shell.emitSignal(ShellLink::interfaceName, "WindowsChanged",
                     {QVariant::fromValue(ShellWindowValues{{}, unclear, window})});
    // Anyone may announce an item; what is no name makes no rule for the bus.
    panel.emitSignal(panelName, "StatusNotifierItemRegistered", {"',type='method_call"});
    EXPECT_FALSE(applications.quitMediaPlayer(self));
    EXPECT_TRUE(loopUntil([&] { return link.windows().size() == 1; }));
    object.emitSignal(properties, "PropertiesChanged",
                      {player, QVariantMap{{"CanQuit", true}}, QStringList()});
    EXPECT_TRUE(loopUntil([&] { return applications.quitMediaPlayer(self); }));
}

/// Every service that is asked what is in use gives one answer to everything.
TEST_F(MalformedMessages, AreNoUseAndNoLock) {
    QVariantList answer;
    std::vector<std::unique_ptr<ScriptedObject>> objects;
    const char* paths[] = {"/org/freedesktop/login1",
                           "/org/freedesktop/login1/session/auto",
                           "/inhibitor",
                           "/org/gnome/SessionManager",
                           "/org/gnome/Mutter/IdleMonitor/Core",
                           "/org/gnome/ScreenSaver",
                           "/org/kde/Solid/PowerManagement/PolicyAgent",
                           "/org/freedesktop/PowerManagement/Inhibit",
                           playerPath};
    for (const char* path : paths) {
        objects.push_back(
            std::make_unique<ScriptedObject>(other, path, [&](const QDBusMessage& call) {
                const QList<QDBusObjectPath> one{QDBusObjectPath("/inhibitor")};
                return call.member() == "GetInhibitors" && call.path().endsWith("SessionManager")
                           ? QVariantList{QVariant::fromValue(one)}
                           : answer;
            }));
    }
    for (const char* name :
         {"org.freedesktop.login1", "org.gnome.SessionManager", "org.gnome.Mutter.IdleMonitor",
          "org.gnome.ScreenSaver", "org.kde.Solid.PowerManagement.PolicyAgent",
          "org.freedesktop.PowerManagement", "org.mpris.MediaPlayer2.one"}) {
        ASSERT_TRUE(other.registerService(name));
    }
    qputenv("PULSE_SERVER", "unix:/nowhere");
    const ProcessReader reader;
    FakeWindowSystem windows;
    const BusOnDemand system = [this] { return std::make_shared<const QDBusConnection>(own); };
    DesktopUseSources sources(
        {own, system, windows, reader, [] { return ApplicationSnapshot(); }, ""});
    AwakeAndAsleep clock;
    SessionAwayTime away(own, system, [&] { return clock; });
    away.setFollowing(true);
    ScriptedObject& saver = *objects[5];
    for (const QVariantList& kind : kinds) {
        answer = kind;
        std::optional<UseReport> report;
        const auto reading = sources.read([&](const UseReport& read) { report = read; });
        ASSERT_TRUE(loopUntil([&] { return report.has_value(); }));
        const std::string shown = QDebug::toString(kind).toStdString();
        EXPECT_TRUE(report->isComplete && report->uses.empty() && !report->sinceInput) << shown;
        if (kind != QVariantList{true}) {
            saver.emitSignal("org.gnome.ScreenSaver", "ActiveChanged", kind);
        }
    }
    clock.awake += std::chrono::hours(1);
    EXPECT_EQ(away.total().count(), 0);
    saver.emitSignal("org.gnome.ScreenSaver", "ActiveChanged", {true});
    EXPECT_TRUE(loopUntil(
        [&] { return (clock.awake += std::chrono::hours(1), away.total().count() > 0); }));
}

TEST_F(MalformedMessages, AreIgnoredAsAnswers) {
    QVariantList answer;
    const ScriptedObject::Answer giveIt = [&](const QDBusMessage&) { return answer; };
    ScriptedObject panel(other, panelPath, giveIt);
    ScriptedObject players(other, playerPath, giveIt);
    ScriptedObject actions(other, "/actions", giveIt);
    ScriptedObject notices(other, "/org/freedesktop/Notifications", giveIt);
    ScriptedObject portal(other, portalPath, giveIt);
    ScriptedObject shell(other, ShellLink::path, giveIt);
    for (const char* name :
         {"org.gnome.Shell", ShellLink::service, panelName, "org.mpris.MediaPlayer2.one",
          "org.freedesktop.Notifications", "org.freedesktop.portal.Desktop"}) {
        ASSERT_TRUE(other.registerService(name));
    }
    const ExportedActions exported{other.baseService().toStdString(), "/actions"};
    DesktopNotifications notifications(own, "org.example.Tool");
    for (const QVariantList& kind : kinds) {
        answer = kind;
        const std::string shown = QDebug::toString(kind).toStdString();
        const bool hasNames = kind == QVariantList{QStringList{"quit", player}};
        players.calls.clear();
        notices.calls.clear();
        portal.calls.clear();
        DbusApplications applications(own);
        DesktopColorScheme scheme(own);
        ShellLink link(own);
        const Subscription token = scheme.onChanged([&] { ADD_FAILURE() << shown; });
        applications.learnActions(exported);
        notifications.add({"id", "title", "body"});
        ASSERT_TRUE(loopUntil([&] {
            return !players.calls.empty() && !notices.calls.empty() && !portal.calls.empty() &&
                   link.state() != ShellLink::State::pending;
        })) << shown;
        EXPECT_TRUE(link.windows().empty()) << shown;
        // Answered by the bus after all those answers.
        callAndWait(own, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId");
        EXPECT_TRUE(loopUntil([&] {
            return applications.activateQuit(exported) == hasNames &&
                   (notices.count("Notify") != 0) == hasNames &&
                   applications.quitMediaPlayer(self) == (kind == QVariantList{wrapped(true)});
        })) << shown;
        EXPECT_FALSE(applications.ownsStatusItem(self)) << shown;
    }
}

} // namespace
} // namespace calmora
