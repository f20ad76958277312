#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/desktop/shortcuts/ShortcutSources.h"

#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QList>

#include <cstdint>
#include <utility>
#include <vector>

namespace calmora {
namespace {

/// How long each question may take.
constexpr int milliseconds = 150;

/// Asks a program that is not started for it.
QDBusPendingCall ask(const QDBusConnection& bus, QDBusMessage call) {
    call.setAutoStartService(false);
    return bus.asyncCall(call, milliseconds);
}

QDBusPendingCall askKde(const QDBusConnection& bus, const QString& path, const char* interface,
                        const char* method) {
    return ask(bus, methodCall("org.kde.kglobalaccel", path, interface, method));
}

/// Appends the keys of one program's shortcuts; the surplus of a list that is too long is left out.
void readKeys(const QDBusArgument& infos, std::vector<Accelerator>& result) {
    infos.beginArray();
    for (qsizetype read = 0; !infos.atEnd() && read < longestList; ++read) {
        infos.beginStructure();
        constexpr int names = 6;
        QString name;
        for (int i = 0; i < names; ++i) {
            infos >> name;
        }
        QList<int> keys;
        static_cast<void>(readBounded(infos, keys));
        infos.endStructure(); // What was not read, the default keys, is passed over.
        for (const int key : std::as_const(keys)) {
            if (auto accelerator = qtAccelerator(static_cast<std::uint32_t>(key))) {
                result.push_back(std::move(*accelerator));
            }
        }
    }
    infos.endArray();
}

} // namespace

DesktopShortcuts::Source kdeShortcuts(const QDBusConnection& bus) {
    return [bus] {
        QDBusPendingCall components =
            askKde(bus, "/kglobalaccel", "org.kde.KGlobalAccel", "allComponents");
        components.waitForFinished();
        std::vector<QDBusPendingCall> calls;
        const auto paths = readArgument<QList<QDBusObjectPath>>(components.reply())
                               .value_or(QList<QDBusObjectPath>());
        for (const QDBusObjectPath& path : paths) {
            calls.push_back(
                askKde(bus, path.path(), "org.kde.kglobalaccel.Component", "allShortcutInfos"));
        }
        std::vector<Accelerator> result;
        for (QDBusPendingCall& call : calls) {
            call.waitForFinished();
            const QVariant infos = call.reply().arguments().value(0);
            if (typeOf(infos) == "a(ssssssaiai)") {
                readKeys(infos.value<QDBusArgument>(), result);
            }
        }
        return result;
    };
}

DesktopShortcuts::Source xfceShortcuts(const QDBusConnection& bus) {
    return [bus] {
        QDBusPendingCall call =
            ask(bus, methodCall("org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf",
                                "GetAllProperties", {"xfce4-keyboard-shortcuts", "/"}));
        call.waitForFinished();
        std::vector<XfceProperty> properties;
        const auto all = readArgument<QVariantMap>(call.reply()).value_or(QVariantMap());
        for (auto at = all.cbegin(); at != all.cend(); ++at) {
            properties.push_back({at.key().toStdString(), readValue<bool>(at.value())});
        }
        return xfceAccelerators(properties);
    };
}

} // namespace calmora
