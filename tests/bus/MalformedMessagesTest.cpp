#include "fakes/FakeLocalizedStrings.h"
#include "platform/desktop/DbusApplications.h"
#include "platform/desktop/DesktopColorScheme.h"
#include "platform/desktop/DesktopNotifications.h"
#include "platform/desktop/single_instance/SingleInstance.h"
#include "platform/desktop/status/QtStatusItem.h"
#include "platform/wayland/kwin/KwinScripts.h"

#include "PrivateBus.h"

#include <unistd.h>

namespace calmora {
namespace {

constexpr auto properties = "org.freedesktop.DBus.Properties";
constexpr auto player = "org.mpris.MediaPlayer2";
constexpr auto playerPath = "/org/mpris/MediaPlayer2";

template <typename Value>
QVariant wrapped(const Value& value) {
    return QVariant::fromValue(QDBusVariant(QVariant::fromValue(value)));
}

QString typesOf(const QVariantList& arguments) {
    QString types;
    for (const QVariant& argument : arguments) {
        types += QDBusMetaType::typeToSignature(argument.metaType());
    }
    return types;
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

class MalformedMessages : public testing::Test {
  protected:
    PrivateBus bus;
    QDBusConnection own = bus.connect();
    QDBusConnection other = bus.connect();
    const ProcessId self = static_cast<ProcessId>(getpid());
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

    const struct {
        const char* path;
        const char* interface;
        const char* name;
        const char* types;
    } rows[] = {
        {playerPath, properties, "PropertiesChanged", "sa{sv}as"},
        {"/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher", "StatusNotifierItemRegistered",
         "s"},
        {"/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher",
         "StatusNotifierItemUnregistered", "s"},
        {"/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged",
         "ssv"},
    };

    for (const auto& row : rows) {
        for (const QVariantList& arguments : kinds) {
            QDBusMessage signal = QDBusMessage::createSignal(row.path, row.interface, row.name);
            signal.setArguments(arguments);
            other.send(signal);
        }
    }
    // Anyone may announce an item; what is no name makes no rule for the bus.
    QDBusMessage item = QDBusMessage::createSignal(
        "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher", "StatusNotifierItemRegistered");
    item.setArguments({"',type='method_call"});
    other.send(item);
    EXPECT_FALSE(applications.quitMediaPlayer(self));
    object.emitSignal(properties, "PropertiesChanged",
                      {player, QVariantMap{{"CanQuit", true}}, QStringList()});
    EXPECT_TRUE(loopUntil([&] { return applications.quitMediaPlayer(self); }));
}

TEST_F(MalformedMessages, AreIgnoredAsAnswers) {
    QVariantList answer;
    const ScriptedObject::Answer giveIt = [&](const QDBusMessage&) { return answer; };
    ScriptedObject panel(other, "/StatusNotifierWatcher", giveIt);
    ScriptedObject players(other, playerPath, giveIt);
    ScriptedObject actions(other, "/actions", giveIt);
    ScriptedObject notices(other, "/org/freedesktop/Notifications", giveIt);
    ScriptedObject portal(other, "/org/freedesktop/portal/desktop", giveIt);
    for (const char* name : {"org.kde.StatusNotifierWatcher", "org.mpris.MediaPlayer2.one",
                             "org.freedesktop.Notifications", "org.freedesktop.portal.Desktop"}) {
        ASSERT_TRUE(other.registerService(name));
    }
    const ExportedActions exported{other.baseService().toStdString(), "/actions"};
    DesktopNotifications notifications(own, "org.example.Tool");
    for (const QVariantList& kind : kinds) {
        answer = kind;
        const std::string types = typesOf(kind).toStdString();
        players.calls.clear();
        notices.calls.clear();
        portal.calls.clear();
        DbusApplications applications(own);
        DesktopColorScheme scheme(own);
        const Subscription token = scheme.onChanged([&](bool) { ADD_FAILURE() << types; });
        applications.learnActions(exported);
        notifications.add({"id", "title", "body"});
        ASSERT_TRUE(loopUntil([&] {
            return !players.calls.empty() && !notices.calls.empty() && !portal.calls.empty();
        })) << types;
        // Answered by the bus after all those answers.
        callAndWait(own, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId");
        EXPECT_TRUE(loopUntil([&] {
            return applications.activateQuit(exported) == (types == "as") &&
                   (notices.count("Notify") != 0) == (types == "as") &&
                   applications.quitMediaPlayer(self) == (kind == QVariantList{wrapped(true)});
        })) << types;
        EXPECT_FALSE(applications.ownsStatusItem(self)) << types;
    }
}

} // namespace
} // namespace calmora
