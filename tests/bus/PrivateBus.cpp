// SPDX-License-Identifier: MIT
#include "PrivateBus.h"

namespace calmora {
namespace {

constexpr auto configuration =
    "<busconfig><type>session</type><listen>unix:tmpdir=%1</listen><policy context='default'>"
    "<allow send_destination='*'/><allow receive_sender='*'/><allow own='*'/></policy></busconfig>";

} // namespace

PrivateBus::PrivateBus() {
    const QString path = folder_.filePath("bus.conf");
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(QString(configuration).arg(folder_.path()).toUtf8());
    file.close();
    daemon_.start("dbus-daemon", {"--config-file=" + path, "--print-address", "--nofork"});
    while (!daemon_.canReadLine() &&
           daemon_.waitForReadyRead(static_cast<int>(scaled(defaultTimeout).count()))) {
    }
    address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
}

PrivateBus::~PrivateBus() {
    for (const QString& name : std::as_const(connections_)) {
        QDBusConnection::disconnectFromBus(name);
    }
    daemon_.terminate();
    daemon_.waitForFinished(5000);
}

QDBusConnection PrivateBus::connect() {
    connections_ += address_ + '#' + QString::number(connections_.size());
    return QDBusConnection::connectToBus(address_, connections_.back());
}

ScriptedObject::ScriptedObject(QDBusConnection connection, const QString& path, Answer answer)
    : connection_(std::move(connection)), path_(path), answer_(std::move(answer)) {
    connection_.registerVirtualObject(path_, this);
}

bool ScriptedObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    calls.push_back(message);
    if (message.isReplyRequired() && !isSilent) {
        connection.send(!error.isEmpty()
                            ? message.createErrorReply(error, "")
                            : message.createReply(answer_ ? answer_(message) : QVariantList()));
    }
    return true;
}

void ScriptedObject::emitSignal(const QString& interface, const QString& name,
                                const QVariantList& arguments) {
    QDBusMessage signal = QDBusMessage::createSignal(path_, interface, name);
    signal.setArguments(arguments);
    connection_.send(signal);
}

int ScriptedObject::count(const QString& member) const {
    return static_cast<int>(std::ranges::count_if(
        calls, [&](const QDBusMessage& call) { return call.member() == member; }));
}

QDBusMessage callAndWait(const QDBusConnection& connection, const QString& service,
                         const QString& path, const QString& interface, const QString& method,
                         const QVariantList& arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setArguments(arguments);
    const QDBusPendingCall pending = connection.asyncCall(call);
    return loopUntil([&] { return pending.isFinished(); }) ? pending.reply() : QDBusMessage();
}

} // namespace calmora
