// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/single_instance/RuntimeLock.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <QDBusConnection>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>

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

/// Lets the program run once in a session: by the application's id on the session bus, or without a
/// bus by a lock in the user's runtime folder.
class SingleInstance {
  public:
    /// Becomes the running instance, or asks that one to show itself, which may take up to three
    /// seconds when it is busy.
    SingleInstance(const QDBusConnection& bus, const std::string& applicationId,
                   const std::filesystem::path& runtimeFolder = RuntimeLock::userFolder());
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Whether this process is the running instance. If not, that one was asked to show itself and
    /// this process may end.
    [[nodiscard]] bool isFirst() const { return isFirst_; }

    /// Called when the program is started a second time. The first subscriber is also called for a
    /// start that came before it.
    [[nodiscard]] Subscription onActivated(std::function<void()> handler);

    /// Called with the name of an action that a launcher asks for, see ApplicationObject.
    [[nodiscard]] Subscription onAction(std::function<void(const QString&)> handler) {
        return acted_.connect(std::move(handler));
    }

  private:
    void activate();
    [[nodiscard]] bool claimName(QDBusConnection bus, const QString& applicationId);
    void claimLock(const std::filesystem::path& folder, const std::string& applicationId);

    bool isFirst_ = true;
    bool isActivationPending_ = false;
    Signal<> activated_;
    Signal<const QString&> acted_;
    std::unique_ptr<ApplicationObject> object_;
    std::unique_ptr<RuntimeLock> lock_;
    std::unique_ptr<QSocketNotifier> attempts_;
};

} // namespace calmora
