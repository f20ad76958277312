#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace calmora {

/// The program on the session bus (org.freedesktop.Application), so that a second start, or a
/// launcher that knows the convention, reaches the running one.
/// Source: freedesktop Desktop Entry Specification, "D-Bus Activation".
class ApplicationObject final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

  public:
    static constexpr auto interfaceName = "org.freedesktop.Application";

    /// The handlers are called from the main loop; `onAction` with the name of an action of the
    /// desktop entry, or any other.
    ApplicationObject(QDBusConnection connection, const QString& applicationId,
                      std::function<void()> onActivate,
                      std::function<void(const QString&)> onAction);

    /// The object path that belongs to an application id.
    [[nodiscard]] static QString pathOf(const QString& applicationId);

  public Q_SLOTS:
    // The interface's methods, under its names. Other types than these never arrive here.
    void Activate(const QVariantMap& platform_data);
    void Open(const QStringList& uris, const QVariantMap& platform_data);
    void ActivateAction(const QString& action_name, const QVariantList& parameter,
                        const QVariantMap& platform_data);

  private:
    std::function<void()> onActivate_;
    std::function<void(const QString&)> onAction_;
};

} // namespace calmora
