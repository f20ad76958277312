// SPDX-License-Identifier: MIT
#include "PrivateBus.h"
#include "fakes/FakeKeys.h"
#include "platform/desktop/hotkeys/KdeHotKeys.h"
#include "platform/desktop/hotkeys/PortalHotKeys.h"
#include "platform/desktop/shortcuts/ShortcutSources.h"
#include "platform/desktop/status/DbusTypes.h"

#include <atomic>

namespace calmora {
namespace {

// Found for the structures below.
using calmora::operator<<;
using calmora::operator>>;

constexpr HotKeyIdentifier first{7, 1};
constexpr HotKeyCombination recorded{12, 0x1800};

/// The hot keys' side of the bus, and what the handler heard.
class DesktopHotKeysTest : public testing::Test {
  protected:
    DesktopHotKeysTest() {
        layout.characters = {{12, "q"}, {13, "w"}, {18, "1"}};
        layout.shiftedCharacters = {{12, "Q"}, {18, "!"}};
    }

    [[nodiscard]] DesktopHotKeysSurroundings surroundings() {
        return {ours, layout, "org.example.Program", "Program", [] { return true; }};
    }

    void listen(HotKeys& hotKeys) {
        handler = hotKeys.installEventHandler([this](const HotKeyEvent& event) {
            heard += event.kind == HotKeyEventKind::hotKeyPressed ? '+' : '-';
            heard += std::to_string(std::get<HotKeyIdentifier>(event.identifier).id);
            return HotKeyStatus::success;
        });
        hotKeys.addEventTypes(HotKeyEventTypes::hotKeys);
    }

    PrivateBus bus;
    QDBusConnection ours = bus.connect();
    FakeKeyboardLayout layout;
    Subscription handler;
    std::string heard;
};

/// A signal that a stranger sends to us alone, which no match of the bus keeps away.
void sendFromStranger(PrivateBus& bus, const QDBusConnection& to, const QDBusMessage& signal) {
    QDBusMessage sent = QDBusMessage::createTargetedSignal(to.baseService(), signal.path(),
                                                           signal.interface(), signal.member());
    sent.setArguments(signal.arguments());
    const QDBusConnection stranger = bus.connect();
    stranger.send(sent);
    // It has arrived when a later call is answered.
    callAndWait(stranger, to.baseService(), "/", "org.freedesktop.DBus.Peer", "Ping");
    QCoreApplication::processEvents();
}

/// A daemon that has given away W and the exclamation mark.
class Daemon {
  public:
    explicit Daemon(PrivateBus& bus)
        : connection(bus.connect()),
          object(connection, "/kglobalaccel", [this](auto&& message) { return answer(message); }) {}

    static QDBusMessage signal(const QString& name, const QString& action,
                               const QString& program = "org.example.Program") {
        QDBusMessage signal =
            QDBusMessage::createSignal("/component/any", "org.kde.kglobalaccel.Component", name);
        signal.setArguments({program, action, qlonglong{5}});
        return signal;
    }

    QVariantList answer(const QDBusMessage& message) {
        const QVariantList arguments = message.arguments();
        if (message.member() == "unregister") {
            key = arguments.value(1) == "key-12-6144" ? 0 : key.load();
            return {arguments.value(1) != "stuck"};
        }
        if (message.member() == "allActionsForComponent") {
            const QString program = arguments.value(0).toStringList().value(0);
            QList<QStringList> actions{{program, "key-12-6144", "", ""}};
            if (program != "org.example.Program") {
                actions.append({program, "stuck", "", ""});
            }
            return {QVariant::fromValue(actions)};
        }
        if (message.member() == "doRegister") {
            return {};
        }
        auto keys = qdbus_cast<QList<int>>(arguments.value(1));
        const bool isFirst = arguments.value(0).toStringList().value(1) == "key-12-6144";
        key = isFirst ? keys.value(0) : key.load();
        for (int& wanted : keys) {
            wanted = wanted == 0x0C000057 || wanted == 0x04000021 ? 0 : wanted;
        }
        return {QVariant::fromValue(keys)};
    }

    /// Of the first hot key; zero while it is not registered.
    std::atomic<int> key = 0;
    QDBusConnection connection;
    ScriptedObject object;
    AnsweringThread thread{std::initializer_list<QObject*>{&object}};
};

TEST_F(DesktopHotKeysTest, KdeFiresAHeldKeyOnceAndNotForStrangers) {
    Daemon daemon(bus);
    KdeHotKeys hotKeys(surroundings());
    listen(hotKeys);
    auto early = hotKeys.registerHotKey(12, 0x1800, first);
    EXPECT_EQ(early.status, HotKeyStatus::success) << "there is no daemon yet";
    ASSERT_TRUE(daemon.connection.registerService("org.kde.kglobalaccel"));
    EXPECT_TRUE(loopUntil([&] { return daemon.key == 0x0C000051; }));

    EXPECT_EQ(hotKeys.registerHotKey(13, 0x1800, {7, 2}).status, HotKeyStatus::taken);
    EXPECT_EQ(hotKeys.registerHotKey(18, 0x1200, {7, 2}).status, HotKeyStatus::taken)
        << "KWin takes Shift with 1 for an exclamation mark";
    EXPECT_EQ(hotKeys.registerHotKey(12, 0x1200, {7, 2}).status, HotKeyStatus::success);
    layout.characters[24] = "\u00B4";
    for (const std::uint32_t lockDeadOrKeypad : {57U, 24U, 87U}) {
        EXPECT_EQ(hotKeys.registerHotKey(lockDeadOrKeypad, 0x1800, {7, 3}).status,
                  HotKeyStatus::badValue)
            << lockDeadOrKeypad;
    }

    const char* const pressed = "globalShortcutPressed";
    const char* const released = "globalShortcutReleased";
    sendFromStranger(bus, ours, Daemon::signal(pressed, "key-12-6144"));
    EXPECT_EQ(heard, "") << "a stranger";
    daemon.connection.send(Daemon::signal(pressed, "key-12-6144", "org.example.Other"));
    daemon.connection.send(Daemon::signal(pressed, "key-13-6144"));
    for (const char* name : {pressed, pressed, pressed, released, pressed, released}) {
        daemon.connection.send(Daemon::signal(name, "key-12-6144"));
    }
    EXPECT_TRUE(loopUntil([&] { return heard.ends_with("-1+1-1"); }));
    EXPECT_EQ(heard, "+1-1+1-1");

    layout.characters = {{12, "a"}, {0, "q"}};
    layout.changed.emit();
    EXPECT_TRUE(loopUntil([&] { return daemon.key == 0x0C000041; }));
    EXPECT_TRUE(forgetKdeKeys(ours, "org.example.Program"));
    EXPECT_EQ(daemon.key, 0);
    EXPECT_FALSE(forgetKdeKeys(ours, "org.example.Stuck"));
    daemon.key = 1;
    early.hotKey.reset();
    EXPECT_EQ(daemon.key, 0) << "known to be unregistered when the token has ended";
}

/// (ssssssaiai), of which the first list counts.
struct ShortcutInfo {
    QList<int> keys;
    QString name = "name";
    QList<int> usual = {0x01000030};

    static auto fields(auto& self) {
        return std::tie(self.name, self.name, self.name, self.name, self.name, self.name, self.keys,
                        self.usual);
    }
};

TEST_F(DesktopHotKeysTest, KdeGivesTheShortcutsOfEveryProgram) {
    qDBusRegisterMetaType<ShortcutInfo>();
    qDBusRegisterMetaType<QList<ShortcutInfo>>();
    const auto shortcuts = kdeShortcuts(ours);
    EXPECT_TRUE(shortcuts().empty()) << "nobody keeps any";

    QDBusConnection daemon = bus.connect();
    ScriptedObject list(daemon, "/kglobalaccel", [](const QDBusMessage&) {
        const QList<QDBusObjectPath> paths{QDBusObjectPath("/kwin"), QDBusObjectPath("/odd"),
                                           QDBusObjectPath("/gone"), QDBusObjectPath("/kmix")};
        return QVariantList{QVariant::fromValue(paths)};
    });
    const auto answering = [](QList<ShortcutInfo> infos) {
        return [infos](const QDBusMessage&) { return QVariantList{QVariant::fromValue(infos)}; };
    };
    ScriptedObject kwin(daemon, "/kwin",
                        answering({{{0x08000000 + 0x01000033, 0x10000041}}, {{0}}, {{}}}));
    // Umlaut and arrow; an unknown key, the keypad and no key.
    ScriptedObject kmix(daemon, "/kmix",
                        answering({{{0x080000E4, 0x0E000000 + 0x01000012}},
                                   {{0x08000000 + 0x01000085, 0x24000035}},
                                   {{0x04000000}}}));
    ScriptedObject odd(daemon, "/odd", [](const QDBusMessage&) { return QVariantList{"none"}; });
    const AnsweringThread thread({&list, &kwin, &kmix, &odd});
    ASSERT_TRUE(daemon.registerService("org.kde.kglobalaccel"));
    EXPECT_EQ(shortcuts(),
              (std::vector<Accelerator>{
                  {0x800, "F4"}, {0x100, "U0041"}, {0x800, "U00E4"}, {0x1A00, "Left"}}));
}

/// (sa{sv}), as the portal carries shortcuts.
struct Shortcut {
    QString id;
    QVariantMap options;

    static auto fields(auto& self) { return std::tie(self.id, self.options); }
};

/// A portal that gives the first shortcut the key "Super Q".
class Portal {
  public:
    explicit Portal(const QDBusConnection& connection)
        : bus(connection),
          desktop(connection, "/org/freedesktop/portal/desktop",
                  [this](const QDBusMessage& message) { return answer(message); }) {}

    QVariantList answer(const QDBusMessage& message) {
        if (message.member() == "Get") {
            return {QVariant::fromValue(QDBusVariant(1U))};
        }
        QVariantMap results;
        if (message.member() == "CreateSession") {
            results["session_handle"] = QString("/session/%1").arg(++sessions);
            session = std::make_unique<ScriptedObject>(bus, results["session_handle"].toString());
        } else {
            bound = qdbus_cast<QList<Shortcut>>(message.arguments().value(1));
            results["shortcuts"] = QVariant::fromValue(
                QList<Shortcut>{{bound.value(0).id, {{"trigger_description", "Super Q"}}}});
        }
        const auto options = qdbus_cast<QVariantMap>(message.arguments().back());
        const QString request = "/org/freedesktop/portal/desktop/request/" +
                                message.service().mid(1).replace('.', '_') + '/' +
                                options["handle_token"].toString();
        QDBusMessage response =
            QDBusMessage::createSignal(request, "org.freedesktop.portal.Request", "Response");
        response.setArguments({0U, results});
        bus.send(response);
        return {QVariant::fromValue(QDBusObjectPath(request))};
    }

    static QDBusMessage signal(const char* name, const char* path, const char* id) {
        QDBusMessage signal = QDBusMessage::createSignal(
            "/org/freedesktop/portal/desktop", "org.freedesktop.portal.GlobalShortcuts", name);
        signal.setArguments({QVariant::fromValue(QDBusObjectPath(path)), QString(id), qulonglong{5},
                             QVariantMap()});
        return signal;
    }

    int sessions = 0;
    QList<Shortcut> bound;
    QDBusConnection bus;
    ScriptedObject desktop;
    std::unique_ptr<ScriptedObject> session;
};

TEST_F(DesktopHotKeysTest, ThePortalBindsTheActionsAndSaysTheirKeys) {
    qDBusRegisterMetaType<Shortcut>();
    qDBusRegisterMetaType<QList<Shortcut>>();
    Portal portal(bus.connect());
    ASSERT_TRUE(portal.bus.registerService("org.freedesktop.portal.Desktop"));
    std::vector<HotKeyAction> actions{{"open", "Open it", "run --open", recorded},
                                      {"end", "End it", "run --end", HotKeyCombination{13, 0}},
                                      {"none", "None", "run --none", {}}};
    PortalHotKeys hotKeys(surroundings(), {.isOnWayland = true, .hasSessionBus = true});
    EXPECT_EQ(hotKeys.hint("none"), (HotKeyHint{HotKeyHint::Kind::none, {}}));
    hotKeys.setActions([&] { return actions; });
    EXPECT_EQ(hotKeys.hint("none"), (HotKeyHint{HotKeyHint::Kind::toCopy, "run --none"}))
        << "the portal has not answered";
    EXPECT_TRUE(hotKeys.unavailableReason());
    listen(hotKeys);
    auto hotKey = hotKeys.registerHotKey(12, 0x1800, first);
    EXPECT_TRUE(loopUntil([&] { return hotKeys.hint("open").text == "Super Q"; }));
    EXPECT_FALSE(hotKeys.unavailableReason());
    EXPECT_EQ(hotKeys.hint("end").kind, HotKeyHint::Kind::unassigned);
    EXPECT_EQ(hotKeys.hint("none").kind, HotKeyHint::Kind::none);
    ASSERT_EQ(portal.bound.size(), 2);
    EXPECT_EQ(portal.bound[0].id, "open");
    EXPECT_EQ(portal.bound[0].options["preferred_trigger"], "CTRL+ALT+q");
    EXPECT_EQ(portal.bound[0].options["description"], "Open it");

    sendFromStranger(bus, ours, Portal::signal("Activated", "/session/1", "open"));
    EXPECT_EQ(heard, "") << "a stranger";
    portal.bus.send(Portal::signal("Activated", "/session/2", "open"));
    portal.bus.send(Portal::signal("Activated", "/session/1", "end"));
    portal.bus.send(Portal::signal("Activated", "/session/1", "nothing of ours"));
    for (const char* name : {"Activated", "Activated", "Deactivated", "Activated"}) {
        portal.bus.send(Portal::signal(name, "/session/1", "open"));
    }
    EXPECT_TRUE(loopUntil([&] { return heard.ends_with("-1+1"); }));
    EXPECT_EQ(heard, "+1-1+1");

    // A menu of ours suspends the hot keys: no new dialog of the portal. A change does need one.
    hotKey.hotKey.reset();
    hotKey = hotKeys.registerHotKey(12, 0x1800, first);
    ScriptedObject* const before = portal.session.get();
    loopFor(std::chrono::milliseconds(20));
    EXPECT_EQ(portal.sessions, 1);
    EXPECT_EQ(before->count("Close"), 0);
    actions[0].combination = HotKeyCombination{13, 0x1800};
    hotKey = hotKeys.registerHotKey(13, 0x1800, first);
    EXPECT_TRUE(loopUntil([&] {
        return portal.sessions == 2 &&
               portal.bound.value(0).options["preferred_trigger"] == "CTRL+ALT+w";
    }));
}

} // namespace
} // namespace calmora

Q_DECLARE_METATYPE(calmora::Shortcut)
