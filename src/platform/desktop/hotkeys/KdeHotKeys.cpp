// SPDX-License-Identifier: MIT
#include "platform/desktop/hotkeys/KdeHotKeys.h"

#include "platform/KeyboardLayout.h"
#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/desktop/shortcuts/DesktopShortcuts.h"
#include "platform/linux/keyboard/KeyCodes.h"

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

constexpr auto service = "org.kde.kglobalaccel";
constexpr int answerMilliseconds = 333;

/// The flags of setShortcut(): it is in use, and replaces what the daemon remembers.
constexpr uint setPresent = 2;
constexpr uint noAutoloading = 4;

/// The name of an action says its key, so that one that was left behind is ours again.
QString actionName(HotKeyCombination combination) {
    return QString("key-%1-%2").arg(combination.keyCode).arg(combination.modifiers);
}

BusSignal::Match signalOf(const QString& component, const char* name) {
    return {.path = {},
            .interface = "org.kde.kglobalaccel.Component",
            .name = name,
            .arguments = {component},
            .service = service};
}

bool isAbsent(const QDBusMessage& answer) {
    const QString error = answer.errorName();
    return error == "org.freedesktop.DBus.Error.ServiceUnknown" ||
           error == "org.freedesktop.DBus.Error.NameHasNoOwner";
}

/// A call that is answered in time or fails.
QDBusMessage askDaemon(const QDBusConnection& bus, const char* method,
                       const QVariantList& arguments) {
    QDBusMessage call =
        methodCall(service, "/kglobalaccel", "org.kde.KGlobalAccel", method, arguments);
    call.setAutoStartService(false);
    return bus.call(call, QDBus::Block, answerMilliseconds);
}

} // namespace

KdeHotKeys::KdeHotKeys(const DesktopHotKeysSurroundings& surroundings)
    : surroundings_(surroundings), table_(surroundings.mayAct),
      pressed_(surroundings.sessionBus, signalOf(surroundings.identifier, "globalShortcutPressed"),
               [this](const QDBusMessage& signal) { receive(signal, &HotKeyTable::press); }),
      released_(surroundings.sessionBus,
                signalOf(surroundings.identifier, "globalShortcutReleased"),
                [this](const QDBusMessage& signal) { receive(signal, &HotKeyTable::release); }),
      daemon_(service, surroundings.sessionBus, QDBusServiceWatcher::WatchForOwnerChange) {
    QObject::connect(&daemon_, &QDBusServiceWatcher::serviceOwnerChanged, &daemon_,
                     [this](const QString&, const QString&, const QString& owner) {
                         table_.releaseAll();
                         if (!owner.isEmpty()) {
                             takeAll();
                         }
                     });
    layoutChanges_ = surroundings_.layout.onChanged([this] { takeAll(); });
}

/// KWin does not tell the keypad's digits from the others, and composes accents first.
std::string KdeHotKeys::limitation() const {
    return "Shortcuts work from any application. Keys for accents and those of the numeric keypad "
           "cannot be used here.";
}

HotKeyRegistration KdeHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                              HotKeyIdentifier identifier) {
    const HotKeyCombination combination{keyCode, modifiers};
    const std::int32_t status = take(combination);
    if (status != HotKeyStatus::success) {
        return {status, {}};
    }
    return {status,
            table_.add(combination, identifier, [this, combination] { release(combination); })};
}

Subscription KdeHotKeys::installEventHandler(Handler handler) {
    return table_.setHandler(std::move(handler));
}

void KdeHotKeys::addEventTypes(HotKeyEventTypes types) {
    if (types == HotKeyEventTypes::hotKeys) {
        table_.setReporting(true);
    }
}

void KdeHotKeys::removeEventTypes(HotKeyEventTypes types) {
    if (types == HotKeyEventTypes::hotKeys) {
        table_.setReporting(false);
    }
}

void KdeHotKeys::setActions(std::function<std::vector<HotKeyAction>()> actions) {
    actions_ = std::move(actions);
}

/// How the daemon names an action: program and action, each as identifier and for the user.
QStringList KdeHotKeys::action(HotKeyCombination combination) const {
    QString description = surroundings_.name;
    for (const HotKeyAction& known : actions_ ? actions_() : std::vector<HotKeyAction>()) {
        if (known.combination == combination) {
            description = QString::fromStdString(known.description);
        }
    }
    return {surroundings_.identifier, actionName(combination), surroundings_.name, description};
}

QDBusMessage KdeHotKeys::ask(const char* method, const QVariantList& arguments) const {
    return askDaemon(surroundings_.sessionBus, method, arguments);
}

std::int32_t KdeHotKeys::take(HotKeyCombination combination) const {
    const QList<int> keys = qtKeys(combination);
    if (keys.isEmpty() || isLockKey(combination.keyCode)) {
        return HotKeyStatus::badValue;
    }
    const QStringList names = action(combination);
    if (isAbsent(ask("doRegister", {names}))) {
        return HotKeyStatus::success;
    }
    const auto granted = readArgument<QList<int>>(
        ask("setShortcut", {names, QVariant::fromValue(keys), setPresent | noAutoloading}));
    if (granted && std::ranges::all_of(keys, [&](int key) { return granted->contains(key); })) {
        return HotKeyStatus::success;
    }
    release(combination);
    return granted ? HotKeyStatus::taken : HotKeyStatus::unavailable;
}

/// The keys of Qt's that KWin may take a combination for: with Shift also the sign that is written
/// then, without Shift. Empty if there is none.
QList<int> KdeHotKeys::qtKeys(HotKeyCombination combination) const {
    const KeyNames names(surroundings_.layout);
    QList<int> keys;
    const bool withShift = (combination.modifiers & carbon::shift) != 0;
    if (surroundings_.layout.isDeadKey(combination.keyCode, withShift)) {
        return keys;
    }
    if (const auto key = qtKey({combination.modifiers, names.name(combination.keyCode)})) {
        keys.append(static_cast<int>(*key));
        const std::string sign = names.shiftedSign(combination.keyCode);
        const auto shifted = qtKey({combination.modifiers & ~carbon::shift, sign});
        if (withShift && shifted) {
            keys.append(static_cast<int>(*shifted));
        }
    }
    return keys;
}

void KdeHotKeys::takeAll() const {
    for (const HotKeyCombination combination : table_.combinations()) {
        static_cast<void>(take(combination));
    }
}

void KdeHotKeys::release(HotKeyCombination combination) const {
    // Waits for the answer, because the program may end.
    static_cast<void>(ask("unregister", {surroundings_.identifier, actionName(combination)}));
}

void KdeHotKeys::receive(const QDBusMessage& signal,
                         void (HotKeyTable::*report)(HotKeyCombination)) {
    const auto arguments = readArguments<QString, QString, qlonglong>(signal);
    if (!arguments) {
        return;
    }
    const auto combinations = table_.combinations();
    const auto found = std::ranges::find(combinations, std::get<1>(*arguments), actionName);
    if (found != combinations.end()) {
        (table_.*report)(*found);
    }
}

bool forgetKdeKeys(const QDBusConnection& bus, const QString& identifier) {
    qDBusRegisterMetaType<QList<QStringList>>();
    const QDBusMessage answer =
        askDaemon(bus, "allActionsForComponent", {QStringList{identifier, {}, {}, {}}});
    if (!bus.isConnected() || isAbsent(answer)) {
        return true;
    }
    const auto actions = readArgument<QList<QStringList>>(answer);
    return actions && std::ranges::all_of(*actions, [&](const QStringList& action) {
               return readArgument<bool>(
                          askDaemon(bus, "unregister", {identifier, action.value(1)}))
                   .value_or(false);
           });
}

} // namespace calmora
