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
                               const std::filesystem::path& runtimeFolder) {
    if (!bus.isConnected() || !claimName(bus, QString::fromStdString(applicationId))) {
        claimLock(runtimeFolder, applicationId);
    }
}

bool SingleInstance::claimName(QDBusConnection bus, const QString& applicationId) {
    // The object comes first: who finds the name must find the object.
    object_ = std::make_unique<ApplicationObject>(
        bus, applicationId, [this] { activate(); },
        [this](const QString& action) { acted_.emit(action); });
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply =
        bus.interface()->registerService(applicationId, QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered) {
        return true;
    }
    object_.reset();
    if (!reply.isValid()) {
        return false;
    }
    isFirst_ = false;
    // The running program may be busy quitting another one.
    constexpr int timeoutMilliseconds = 3000;
    bus.call(methodCall(applicationId, ApplicationObject::pathOf(applicationId),
                        ApplicationObject::interfaceName, "Activate", {QVariantMap()}),
             QDBus::Block, timeoutMilliseconds);
    return true;
}

void SingleInstance::claimLock(const std::filesystem::path& folder,
                               const std::string& applicationId) {
    if (folder.empty()) {
        return;
    }
    lock_ = std::make_unique<RuntimeLock>(folder, applicationId);
    if (lock_->isHeldElsewhere()) {
        isFirst_ = false;
        lock_->connectToHolder();
        return;
    }
    if (lock_->descriptor() >= 0) {
        attempts_ = std::make_unique<QSocketNotifier>(lock_->descriptor(), QSocketNotifier::Read);
        QObject::connect(attempts_.get(), &QSocketNotifier::activated, attempts_.get(), [this] {
            if (lock_->acceptAttempt()) {
                activate();
            }
        });
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
