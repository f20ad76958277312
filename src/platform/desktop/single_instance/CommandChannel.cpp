// SPDX-License-Identifier: MIT
#include "platform/desktop/single_instance/CommandChannel.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/desktop/single_instance/SingleInstance.h"

#include <QTimer>

#include <limits>
#include <utility>

namespace calmora {
namespace {

constexpr int timeoutMilliseconds = 3000;

QString pathOf(const QString& applicationId) {
    return ApplicationObject::pathOf(applicationId) + "/Commands";
}

} // namespace

CommandChannel::CommandChannel(QDBusConnection connection, const QString& applicationId,
                               Handler handler)
    : connection_(std::move(connection)), handler_(std::move(handler)) {
    connection_.registerObject(pathOf(applicationId), this, QDBusConnection::ExportAllSlots);
}

uint CommandChannel::Run(const QStringList& arguments, QString& /*output*/) {
    // Commands may block, and show questions: not from within the dispatch of a message.
    setDelayedReply(true);
    QTimer::singleShot(0, this, [this, call = message(), arguments] {
        const ChannelAnswer answer = handler_(arguments);
        connection_.send(call.createReply({answer.status, answer.output}));
    });
    return 0;
}

std::optional<ChannelAnswer> CommandChannel::send(const QDBusConnection& connection,
                                                  const QString& applicationId,
                                                  const QStringList& arguments, bool mayTakeLong) {
    const auto call = [&](const QStringList& words, int timeout) {
        QDBusMessage request =
            methodCall(applicationId, pathOf(applicationId), interfaceName, "Run", {words});
        request.setAutoStartService(false);
        return connection.call(request, QDBus::Block, timeout);
    };
    // An unknown command does nothing: it only shows that somebody answers.
    if (mayTakeLong && call({"--ping"}, timeoutMilliseconds).type() != QDBusMessage::ReplyMessage) {
        return {};
    }
    const QDBusMessage reply =
        call(arguments, mayTakeLong ? std::numeric_limits<int>::max() : timeoutMilliseconds);
    const auto values = readArguments<uint, QString>(reply);
    if (reply.type() != QDBusMessage::ReplyMessage || !values) {
        return {};
    }
    return ChannelAnswer{std::get<0>(*values), std::get<1>(*values)};
}

} // namespace calmora
