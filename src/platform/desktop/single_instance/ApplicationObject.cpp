#include "platform/desktop/single_instance/ApplicationObject.h"

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

} // namespace calmora
