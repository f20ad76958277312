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

#include <chrono>
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

/// Lets the program run once in a session, which is proven by a lock in the user's runtime folder,
/// for a bus may end before the session, and by the application's id on the session bus.
class SingleInstance {
  public:
    /// How long the running instance may take to answer: it may be busy quitting a program.
    static constexpr std::chrono::milliseconds timeout{3000};

    enum class State {
        /// This process is the running instance.
        first,
        /// Another one is, and was asked to show itself.
        shownElsewhere,
        /// Another one is, but does not answer.
        silentElsewhere,
    };

    /// Becomes the running instance with a lock that no other process has, or asks that one, which
    /// may have another lock, to show itself.
    SingleInstance(const QDBusConnection& bus, const std::string& applicationId, RuntimeLock lock);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    [[nodiscard]] State state() const { return state_; }

    /// Whether another program has the application's id on the bus, so that this process cannot be
    /// reached there.
    [[nodiscard]] bool isNameTaken() const { return isNameTaken_; }

    /// Called when the program is started a second time. The first subscriber is also called for a
    /// start that came before it.
    [[nodiscard]] Subscription onActivated(std::function<void()> handler);

    /// Called with the name of an action that a launcher asks for, see ApplicationObject.
    [[nodiscard]] Subscription onAction(std::function<void(const QString&)> handler) {
        return acted_.connect(std::move(handler));
    }

  private:
    void activate();
    void claimName(QDBusConnection bus, const QString& applicationId);

    State state_ = State::first;
    bool isNameTaken_ = false;
    bool isActivationPending_ = false;
    Signal<> activated_;
    Signal<const QString&> acted_;
    std::unique_ptr<ApplicationObject> object_;
    RuntimeLock lock_;
    std::unique_ptr<QSocketNotifier> attempts_;
};

} // namespace calmora
