// SPDX-License-Identifier: MIT
#include "platform/desktop/hotkeys/PortalHotKeys.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/desktop/shortcuts/DesktopShortcuts.h"
#include "platform/desktop/status/DbusTypes.h"

#include <QDBusObjectPath>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace calmora {

/// (sa{sv}).
struct PortalShortcut {
    QString id;
    QVariantMap options;

    static auto fields(auto& self) { return std::tie(self.id, self.options); }
};

} // namespace calmora

Q_DECLARE_METATYPE(calmora::PortalShortcut)

namespace calmora {
namespace {

constexpr auto service = "org.freedesktop.portal.Desktop";
constexpr auto desktopPath = "/org/freedesktop/portal/desktop";
constexpr auto interface = "org.freedesktop.portal.GlobalShortcuts";

BusSignal::Match portalSignal(const char* name) {
    return {.path = desktopPath, .interface = interface, .name = name, .service = service};
}

void registerTypes() {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
}

/// The portal gives the session as a text, and other portals as a path.
QString sessionIn(const QVariantMap& results) {
    const QVariant handle = results.value("session_handle");
    return readValue<QDBusObjectPath>(handle)
        .value_or(QDBusObjectPath(readValue<QString>(handle).value_or(QString())))
        .path();
}

} // namespace

PortalHotKeys::PortalHotKeys(const DesktopHotKeysSurroundings& surroundings, HotKeyFacts facts)
    : surroundings_(surroundings), facts_(std::move(facts)), table_(surroundings.mayAct),
      activated_(surroundings.sessionBus, portalSignal("Activated"),
                 [this](const QDBusMessage& signal) { receive(signal, &HotKeyTable::press); }),
      deactivated_(surroundings.sessionBus, portalSignal("Deactivated"),
                   [this](const QDBusMessage& signal) { receive(signal, &HotKeyTable::release); }),
      changed_(surroundings.sessionBus, portalSignal("ShortcutsChanged"),
               [this](const QDBusMessage& signal) {
                   const QVariantList arguments = signal.arguments();
                   const auto session = readValue<QDBusObjectPath>(arguments.value(0));
                   if (session && !session_.isEmpty() && session->path() == session_) {
                       takeTriggers(arguments.value(1));
                   }
               }),
      portal_(service, surroundings.sessionBus, QDBusServiceWatcher::WatchForOwnerChange) {
    registerTypes();
    QObject::connect(&portal_, &QDBusServiceWatcher::serviceOwnerChanged, &context_, [this] {
        // The sessions of another one are over.
        session_.clear();
        closeSession();
        bindSoon();
    });
    if (!facts_.hasSessionBus) {
        return;
    }
    callAsync(surroundings_.sessionBus, propertyCall(service, desktopPath, interface, "version"),
              context_, [this](const QDBusMessage& answer) {
                  if (readProperty<uint>(answer)) {
                      facts_.hasPortal = true;
                      hintsChanged_.emit();
                      bindSoon();
                  }
              });
}

PortalHotKeys::~PortalHotKeys() {
    closeSession();
}

std::optional<std::string> PortalHotKeys::unavailableReason() const {
    if (hotKeyRoute(facts_) == HotKeyRoute::otherConfiguration) {
        return "This desktop does not let programs choose shortcuts. Bind these commands to keys "
               "in its settings or its configuration.";
    }
    return std::nullopt;
}

HotKeyRegistration PortalHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 HotKeyIdentifier identifier) {
    bindSoon();
    return {HotKeyStatus::success,
            table_.add({keyCode, modifiers}, identifier, [this] { bindSoon(); })};
}

Subscription PortalHotKeys::installEventHandler(Handler handler) {
    return table_.setHandler(std::move(handler));
}

void PortalHotKeys::addEventTypes(HotKeyEventTypes types) {
    if (types == HotKeyEventTypes::hotKeys) {
        table_.setReporting(true);
    }
}

void PortalHotKeys::removeEventTypes(HotKeyEventTypes types) {
    if (types == HotKeyEventTypes::hotKeys) {
        table_.setReporting(false);
    }
}

std::string PortalHotKeys::limitation() const {
    switch (hotKeyRoute(facts_)) {
    case HotKeyRoute::portal:
        return "The desktop assigns the keys; what is recorded here is a proposal.";
    case HotKeyRoute::swayConfiguration:
        return "Record a shortcut, copy its line into the configuration of sway, and reload that.";
    default:
        return unavailableReason().value_or("");
    }
}

void PortalHotKeys::setActions(std::function<std::vector<HotKeyAction>()> actions) {
    actions_ = std::move(actions);
    bindSoon();
}

HotKeyHint PortalHotKeys::hint(const std::string& actionId) const {
    const auto actions = actions_ ? actions_() : std::vector<HotKeyAction>();
    const auto action = std::ranges::find(actions, actionId, &HotKeyAction::id);
    const HotKeyRoute route = hotKeyRoute(facts_);
    if (action == actions.end()) {
        return {};
    }
    if (route == HotKeyRoute::otherConfiguration) {
        return {HotKeyHint::Kind::toCopy, action->command};
    }
    if (!action->combination) {
        return {};
    }
    if (route == HotKeyRoute::swayConfiguration) {
        const KeyNames names(surroundings_.layout);
        return {HotKeyHint::Kind::toCopy,
                swayLine({action->combination->modifiers, names.name(action->combination->keyCode)},
                         *action->combination, action->command)};
    }
    if (!triggers_) {
        return {};
    }
    const auto trigger = triggers_->find(QString::fromStdString(actionId));
    return trigger != triggers_->end() && !trigger->second.isEmpty()
               ? HotKeyHint{HotKeyHint::Kind::assigned, trigger->second.toStdString()}
               : HotKeyHint{HotKeyHint::Kind::unassigned, {}};
}

Subscription PortalHotKeys::onHintsChanged(std::function<void()> handler) {
    return hintsChanged_.connect(std::move(handler));
}

std::vector<PortalHotKeys::Binding> PortalHotKeys::wantedBindings() const {
    const KeyNames names(surroundings_.layout);
    std::vector<Binding> result;
    for (const HotKeyAction& action : actions_ ? actions_() : std::vector<HotKeyAction>()) {
        if (action.combination) {
            const Accelerator keys{action.combination->modifiers,
                                   names.name(action.combination->keyCode)};
            result.push_back({QString::fromStdString(action.id),
                              QString::fromStdString(action.description),
                              QString::fromStdString(portalTrigger(keys)), *action.combination});
        }
    }
    return result;
}

/// After the change is complete. The portal binds once in a session, so a change needs another.
void PortalHotKeys::bindSoon() {
    if (facts_.hasPortal) {
        QTimer::singleShot(0, &context_, [this] { bind(); });
    }
}

void PortalHotKeys::bind() {
    std::vector<Binding> wanted = wantedBindings();
    if (wanted == bindings_) {
        return;
    }
    closeSession();
    bindings_ = std::move(wanted);
    hintsChanged_.emit();
    if (!bindings_.empty()) {
        request("CreateSession", {},
                {{"session_handle_token", QString("calmora%1").arg(lastToken_)}},
                [this](const QVariantMap& results) { bindIn(sessionIn(results)); });
    }
}

void PortalHotKeys::bindIn(const QString& session) {
    session_ = session;
    if (session_.isEmpty()) {
        takeTriggers({});
        return;
    }
    QList<PortalShortcut> shortcuts;
    for (const Binding& binding : bindings_) {
        shortcuts.append(
            {binding.id,
             {{"description", binding.description}, {"preferred_trigger", binding.trigger}}});
    }
    request(
        "BindShortcuts",
        {QVariant::fromValue(QDBusObjectPath(session_)), QVariant::fromValue(shortcuts), QString()},
        {}, [this](const QVariantMap& results) { takeTriggers(results.value("shortcuts")); });
}

void PortalHotKeys::closeSession() {
    response_.reset();
    ++lastToken_;
    triggers_.reset();
    bindings_.clear();
    table_.releaseAll();
    if (!session_.isEmpty()) {
        surroundings_.sessionBus.send(methodCall(service, std::exchange(session_, QString()),
                                                 "org.freedesktop.portal.Session", "Close"));
    }
}

void PortalHotKeys::request(const char* method, QVariantList arguments, QVariantMap options,
                            std::function<void(const QVariantMap&)> done) {
    const QString token = QString("calmora%1").arg(++lastToken_);
    const QString sender = surroundings_.sessionBus.baseService().mid(1).replace('.', '_');
    // Later, because another request ends the signal that brings the answer.
    const auto finish = [this, done = std::move(done), number = lastToken_](QVariantMap results) {
        QTimer::singleShot(0, &context_, [this, done, number, results = std::move(results)] {
            if (number == lastToken_) {
                done(results);
            }
        });
    };
    response_ = std::make_unique<BusSignal>(
        surroundings_.sessionBus,
        BusSignal::Match{.path = QString("%1/request/%2/%3").arg(desktopPath, sender, token),
                         .interface = "org.freedesktop.portal.Request",
                         .name = "Response",
                         .service = service},
        [finish](const QDBusMessage& response) {
            const auto answer = readArguments<uint, QVariantMap>(response);
            // Zero is success; the user may have refused.
            finish(answer && std::get<0>(*answer) == 0 ? std::get<1>(*answer) : QVariantMap());
        });
    options.insert("handle_token", token);
    arguments.append(options);
    callAsync(surroundings_.sessionBus,
              methodCall(service, desktopPath, interface, method, arguments), context_,
              [finish](const QDBusMessage& answer) {
                  if (answer.type() == QDBusMessage::ErrorMessage) {
                      finish({});
                  }
              });
}

void PortalHotKeys::takeTriggers(const QVariant& shortcuts) {
    triggers_.emplace();
    for (const PortalShortcut& shortcut :
         readValue<QList<PortalShortcut>>(shortcuts).value_or(QList<PortalShortcut>())) {
        triggers_->emplace(
            shortcut.id,
            readValue<QString>(shortcut.options.value("trigger_description")).value_or(QString()));
    }
    hintsChanged_.emit();
}

void PortalHotKeys::receive(const QDBusMessage& signal,
                            void (HotKeyTable::*report)(HotKeyCombination)) {
    const auto arguments = readArguments<QDBusObjectPath, QString, qulonglong, QVariantMap>(signal);
    if (!arguments || session_.isEmpty() || std::get<0>(*arguments).path() != session_) {
        return;
    }
    const auto binding = std::ranges::find(bindings_, std::get<1>(*arguments), &Binding::id);
    if (binding != bindings_.end()) {
        (table_.*report)(binding->combination);
    }
}

} // namespace calmora
