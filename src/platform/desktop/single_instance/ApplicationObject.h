#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QString>

#include <functional>

namespace calmora {

/// The program on the session bus (org.freedesktop.Application), so that a second start, or a
/// launcher that knows the convention, reaches the one that runs.
/// Source: freedesktop Desktop Entry Specification, "D-Bus Activation".
class ApplicationObject : public QDBusVirtualObject {
  public:
    static constexpr auto interfaceName = "org.freedesktop.Application";

    /// `onActivate` is told from the main loop.
    ApplicationObject(const QDBusConnection& connection, const QString& applicationId,
                      std::function<void()> onActivate);
    ~ApplicationObject() override;

    /// The object path that belongs to an application id.
    [[nodiscard]] static QString pathOf(const QString& applicationId);

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

  private:
    QDBusConnection connection_;
    QString path_;
    std::function<void()> onActivate_;
};

} // namespace calmora
