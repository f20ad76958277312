#include "platform/desktop/shortcuts/ShortcutSources.h"

#include "PrivateBus.h"

namespace calmora {
namespace {

/// (ssssssaiai), of which the first list counts.
struct ShortcutInfo {
    QList<int> keys;
};

QDBusArgument& operator<<(QDBusArgument& to, const ShortcutInfo& info) {
    to.beginStructure();
    const QString name = "name";
    to << name << name << name << name << name << name << info.keys << QList<int>{0x01000030};
    to.endStructure();
    return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, ShortcutInfo&) {
    return from;
}

TEST(KdeShortcuts, AreThoseOfEveryProgram) {
    qDBusRegisterMetaType<ShortcutInfo>();
    qDBusRegisterMetaType<QList<ShortcutInfo>>();
    PrivateBus bus;
    const auto shortcuts = kdeShortcuts(bus.connect());
    EXPECT_TRUE(shortcuts().empty()) << "nobody keeps any";

    // The asking thread waits for the answers, so another one gives them.
    QThread thread;
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
    for (QObject* object : std::initializer_list<QObject*>{&list, &kwin, &kmix, &odd}) {
        object->moveToThread(&thread);
    }
    thread.start();
    ASSERT_TRUE(daemon.registerService("org.kde.kglobalaccel"));
    EXPECT_EQ(shortcuts(),
              (std::vector<Accelerator>{
                  {0x800, "F4"}, {0x100, "U0041"}, {0x800, "U00E4"}, {0x1A00, "Left"}}));
    thread.quit();
    thread.wait();
}

} // namespace
} // namespace calmora
