// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/hotkeys/DesktopHotKeys.h"
#include "platform/desktop/hotkeys/HotKeyRoute.h"
#include "platform/desktop/hotkeys/HotKeyTable.h"
#include "support/Signal.h"

#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace calmora {

/// Hot keys where the user assigns the keys: in the dialog of the desktop's portal, or, where there
/// is no portal, in the configuration of the desktop, which then runs our commands. Registering a
/// hot key always succeeds.
/// Source: freedesktop portal GlobalShortcuts.
class PortalHotKeys final : public HotKeys {
  public:
    /// Asks whether there is a portal, without waiting for it.
    PortalHotKeys(const DesktopHotKeysSurroundings& surroundings, HotKeyFacts facts);

    PortalHotKeys(const PortalHotKeys&) = delete;
    PortalHotKeys& operator=(const PortalHotKeys&) = delete;
    ~PortalHotKeys() override;

    [[nodiscard]] std::optional<std::string> unavailableReason() const override;
    [[nodiscard]] HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                    HotKeyIdentifier identifier) override;
    [[nodiscard]] Subscription installEventHandler(Handler handler) override;
    void addEventTypes(HotKeyEventTypes types) override;
    void removeEventTypes(HotKeyEventTypes types) override;
    [[nodiscard]] std::string limitation() const override;
    void setActions(std::function<std::vector<HotKeyAction>()> actions) override;
    [[nodiscard]] HotKeyHint hint(const std::string& actionId) const override;
    [[nodiscard]] Subscription onHintsChanged(std::function<void()> handler) override;

  private:
    /// What the portal is asked to bind.
    struct Binding {
        QString id;
        QString description;
        QString trigger;
        HotKeyCombination combination;

        friend bool operator==(const Binding&, const Binding&) = default;
    };

    [[nodiscard]] std::vector<Binding> wantedBindings() const;
    void bindSoon();
    void bind();
    void bindIn(const QString& session);
    void closeSession();
    /// Calls a method that answers through a request object, with its token added to the options.
    void request(const char* method, QVariantList arguments, QVariantMap options,
                 std::function<void(const QVariantMap&)> done);
    void takeTriggers(const QVariant& shortcuts);
    void receive(const QDBusMessage& signal, void (HotKeyTable::*report)(HotKeyCombination));

    DesktopHotKeysSurroundings surroundings_;
    HotKeyFacts facts_;
    HotKeyTable table_;
    std::function<std::vector<HotKeyAction>()> actions_;
    Signal<> hintsChanged_;
    /// What was last asked for.
    std::vector<Binding> bindings_;
    QString session_;
    /// What the portal calls the key of each action; absent until it has answered.
    std::optional<std::map<QString, QString>> triggers_;
    std::uint64_t lastToken_ = 0;
    std::unique_ptr<BusSignal> response_;
    BusSignal activated_;
    BusSignal deactivated_;
    BusSignal changed_;
    QDBusServiceWatcher portal_;
    QObject context_;
};

} // namespace calmora
