#include "platform/linux/desktop_shortcuts/KdeShortcuts.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QList>

#include <cstdint>
#include <utility>
#include <vector>

namespace calmora {
namespace {

/// In milliseconds, for each of the two rounds.
constexpr int patience = 150;

QDBusPendingCall ask(const QDBusConnection& bus, const QString& path, const char* interface,
                     const char* method) {
    QDBusMessage call =
        QDBusMessage::createMethodCall("org.kde.kglobalaccel", path, interface, method);
    call.setAutoStartService(false);
    return bus.asyncCall(call, patience);
}

/// Appends the keys of one program's shortcuts.
void readKeys(const QDBusArgument& infos, std::vector<Accelerator>& result) {
    infos.beginArray();
    while (!infos.atEnd()) {
        infos.beginStructure();
        constexpr int names = 6;
        QString name;
        for (int i = 0; i < names; ++i) {
            infos >> name;
        }
        QList<int> keys;
        QList<int> defaultKeys;
        infos >> keys >> defaultKeys;
        infos.endStructure();
        for (const int key : keys) {
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
            ask(bus, "/kglobalaccel", "org.kde.KGlobalAccel", "allComponents");
        components.waitForFinished();
        const QDBusMessage list = components.reply();
        std::vector<QDBusPendingCall> calls;
        for (const QDBusObjectPath& path :
             list.signature() == "ao" ? qdbus_cast<QList<QDBusObjectPath>>(list.arguments().front())
                                      : QList<QDBusObjectPath>()) {
            calls.push_back(
                ask(bus, path.path(), "org.kde.kglobalaccel.Component", "allShortcutInfos"));
        }
        std::vector<Accelerator> result;
        for (QDBusPendingCall& call : calls) {
            call.waitForFinished();
            const QDBusMessage reply = call.reply();
            if (reply.type() == QDBusMessage::ReplyMessage &&
                reply.signature() == "a(ssssssaiai)") {
                readKeys(reply.arguments().front().value<QDBusArgument>(), result);
            }
        }
        return result;
    };
}

} // namespace calmora
