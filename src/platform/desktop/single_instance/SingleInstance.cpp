// SPDX-License-Identifier: MIT
#include "platform/desktop/single_instance/SingleInstance.h"

#include "platform/desktop/dbus/Calls.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QTimer>

#include <utility>

namespace calmora {

ApplicationObject::ApplicationObject(QDBusConnection connection, const QString& applicationId,
                                     std::function<void()> onActivate,
                                     std::function<void(const QString&)> onAction)
    : onActivate_(std::move(onActivate)), onAction_(std::move(onAction)) {
    connection.registerObject(pathOf(applicationId), this, QDBusConnection::ExportAllSlots);
}

QString ApplicationObject::pathOf(const QString& applicationId) {
    return '/' + QString(applicationId).replace('.', '/').replace('-', '_');
}

void ApplicationObject::Activate(const QVariantMap& /*platform_data*/) {
    // After the answer, for which the other start waits.
    QTimer::singleShot(0, this, onActivate_);
}

void ApplicationObject::Open(const QStringList& /*uris*/, const QVariantMap& platform_data) {
    Activate(platform_data);
}

void ApplicationObject::ActivateAction(const QString& action_name,
                                       const QVariantList& /*parameter*/,
                                       const QVariantMap& /*platform_data*/) {
    QTimer::singleShot(0, this, [this, action_name] { onAction_(action_name); });
}

SingleInstance::SingleInstance(const QDBusConnection& bus, const std::string& applicationId,
                               RuntimeLock lock)
    : lock_(std::move(lock)) {
    if (bus.isConnected()) {
        claimName(bus, QString::fromStdString(applicationId));
    }
    if (state_ == State::first && lock_.descriptor() >= 0) {
        attempts_ = std::make_unique<QSocketNotifier>(lock_.descriptor(), QSocketNotifier::Read);
        QObject::connect(attempts_.get(), &QSocketNotifier::activated, attempts_.get(), [this] {
            if (lock_.acceptAttempt()) {
                activate();
            }
        });
    }
}

void SingleInstance::claimName(QDBusConnection bus, const QString& applicationId) {
    // The object comes first: who finds the name must find the object.
    object_ = std::make_unique<ApplicationObject>(
        bus, applicationId, [this] { activate(); },
        [this](const QString& action) { acted_.emit(action); });
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply =
        bus.interface()->registerService(applicationId, QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered) {
        return;
    }
    object_.reset();
    if (!reply.isValid()) {
        return;
    }
    // The owner has another lock, as on another display, or is no Calmora.
    const QDBusMessage answer =
        bus.call(methodCall(applicationId, ApplicationObject::pathOf(applicationId),
                            ApplicationObject::interfaceName, "Activate", {QVariantMap()}),
                 QDBus::Block, static_cast<int>(timeout.count()));
    if (answer.type() == QDBusMessage::ReplyMessage) {
        state_ = State::shownElsewhere;
    } else if (QDBusError(answer).type() == QDBusError::NoReply) {
        state_ = State::silentElsewhere;
    } else {
        isNameTaken_ = true;
    }
}

void SingleInstance::activate() {
    if (activated_.hasListeners()) {
        activated_.emit();
    } else {
        isActivationPending_ = true;
    }
}

Subscription SingleInstance::onActivated(std::function<void()> handler) {
    Subscription token = activated_.connect(std::move(handler));
    if (std::exchange(isActivationPending_, false)) {
        QTimer::singleShot(0, object_ ? static_cast<QObject*>(object_.get()) : attempts_.get(),
                           [this] { activate(); });
    }
    return token;
}

} // namespace calmora
