// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopNotifications.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QStringList>
#include <QTimer>
#include <QVariantMap>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace calmora {
namespace {

constexpr auto service = "org.freedesktop.Notifications";
constexpr auto path = "/org/freedesktop/Notifications";
constexpr auto actionKey = "act";
constexpr std::chrono::seconds answerTimeout{3};

QDBusMessage serverCall(const QString& method, const QVariantList& arguments = {}) {
    return methodCall(service, path, service, method, arguments);
}

/// Whether an error means that there is nobody to ask; else somebody refused or is stuck.
bool meansNoServer(const QDBusMessage& error) {
    static constexpr QDBusError::ErrorType types[] = {
        QDBusError::ServiceUnknown, QDBusError::Disconnected, QDBusError::NoServer};
    const QString name = error.errorName();
    return std::ranges::count(types, QDBusError(error).type()) > 0 ||
           name == "org.freedesktop.DBus.Error.NameHasNoOwner" ||
           name.startsWith("org.freedesktop.DBus.Error.Spawn.");
}

/// One notice that the user can answer, from the request to its withdrawal.
class Notice {
  public:
    Notice(const QDBusConnection& bus, std::function<void(NoticeEvent)> handler)
        : bus_(bus), handler_(std::move(handler)) {
        timeout_.setSingleShot(true);
        QObject::connect(&timeout_, &QTimer::timeout, &timeout_,
                         [this] { settle(NoticeEvent::failed); });
        timeout_.start(answerTimeout);
    }

    /// The server's answer to Notify, or an error. It may come after the withdrawal.
    void take(const QDBusMessage& answer) {
        const auto number = readArgument<uint>(answer);
        if (!number) {
            settle(meansNoServer(answer) ? NoticeEvent::noServer : NoticeEvent::failed);
            return;
        }
        number_ = *number;
        if (isSettled_) { // Withdrawn, or given up.
            close();
            return;
        }
        actions_.emplace(bus_, signalMatch("ActionInvoked"), [this](const QDBusMessage& signal) {
            const auto chosen = readArguments<uint, QString>(signal);
            if (chosen && std::get<0>(*chosen) == number_ && std::get<1>(*chosen) == actionKey) {
                tell(NoticeEvent::actionChosen);
            }
        });
        closings_.emplace(bus_, signalMatch("NotificationClosed"),
                          [this](const QDBusMessage& signal) {
                              const auto closed = readArguments<uint, uint>(signal);
                              if (closed && std::get<0>(*closed) == number_) {
                                  number_.reset(); // The server may give the number to another.
                              }
                          });
        settle(NoticeEvent::shown);
    }

    void withdraw() {
        handler_ = nullptr;
        isSettled_ = true;
        timeout_.stop();
        actions_.reset();
        closings_.reset();
        close();
    }

  private:
    static BusSignal::Match signalMatch(const QString& name) {
        return {.path = path, .interface = service, .name = name, .service = service};
    }

    /// Tells the outcome, once.
    void settle(NoticeEvent outcome) {
        if (!std::exchange(isSettled_, true)) {
            timeout_.stop();
            tell(outcome);
        }
    }

    void tell(NoticeEvent event) {
        if (const auto handler = handler_) { // It may withdraw the notice.
            handler(event);
        }
    }

    void close() {
        if (const auto number = std::exchange(number_, std::nullopt)) {
            bus_.call(serverCall("CloseNotification", {*number}), QDBus::NoBlock);
        }
    }

    QDBusConnection bus_;
    std::function<void(NoticeEvent)> handler_;
    QTimer timeout_;
    bool isSettled_ = false;
    /// The server's number of it while it may be on screen.
    std::optional<uint> number_;
    std::optional<BusSignal> actions_;
    std::optional<BusSignal> closings_;
};

} // namespace

DesktopNotifications::DesktopNotifications(const QDBusConnection& bus, const QString& applicationId)
    : bus_(bus), applicationId_(applicationId) {}

void DesktopNotifications::add(const UserNotification& notification) {
    notify({.title = QString::fromStdString(notification.title),
            .body = QString::fromStdString(notification.body)},
           nullptr);
}

Subscription DesktopNotifications::show(const UserNotification& notification,
                                        const std::string& actionTitle,
                                        std::chrono::milliseconds lifetime,
                                        std::function<void(NoticeEvent)> handler) {
    auto notice = std::make_shared<Notice>(bus_, std::move(handler));
    notify({.title = QString::fromStdString(notification.title),
            .body = QString::fromStdString(notification.body),
            .action = QString::fromStdString(actionTitle),
            .lifetime = static_cast<int>(lifetime.count())},
           [notice](const QDBusMessage& answer) { notice->take(answer); });
    return Subscription([notice = std::move(notice)] { notice->withdraw(); });
}

void DesktopNotifications::notify(const Request& request,
                                  const std::function<void(const QDBusMessage&)>& done) {
    // Asked each time: the server may have changed.
    callAsync(bus_, serverCall("GetCapabilities"), answers_, [=, this](const QDBusMessage& answer) {
        const auto capabilities = readArgument<QStringList>(answer);
        if (!capabilities) {
            if (done) {
                done(answer);
            }
            return;
        }
        const bool isMarkup = capabilities->contains("body-markup");
        const bool hasButton = !request.action.isEmpty() && capabilities->contains("actions");
        const QVariantMap hints{{"desktop-entry", applicationId_}, {"suppress-sound", true}};
        constexpr uint replacesNone = 0;
        const QDBusMessage call = serverCall(
            "Notify", {"Calmora", replacesNone, applicationId_, request.title,
                       isMarkup ? request.body.toHtmlEscaped() : request.body,
                       hasButton ? QStringList{actionKey, request.action} : QStringList(), hints,
                       request.lifetime});
        if (done) {
            callAsync(bus_, call, answers_, done);
        } else {
            bus_.call(call, QDBus::NoBlock);
        }
    });
}

} // namespace calmora
