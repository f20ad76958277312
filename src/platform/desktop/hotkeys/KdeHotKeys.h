// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/hotkeys/DesktopHotKeys.h"
#include "platform/desktop/hotkeys/HotKeyTable.h"

#include <QDBusServiceWatcher>

#include <map>

namespace calmora {

/// Hot keys of KDE's daemon of global shortcuts, which KWin is on Wayland. They are registered
/// while they are wanted, and again when another daemon takes over or the layout moves keys. Each
/// call waits for a third of a second at most.
/// Source: org.kde.KGlobalAccel and org.kde.kglobalaccel.Component.
class KdeHotKeys final : public HotKeys {
  public:
    explicit KdeHotKeys(const DesktopHotKeysSurroundings& surroundings);

    [[nodiscard]] std::optional<std::string> unavailableReason() const override { return {}; }

    [[nodiscard]] std::string limitation() const override;

    /// A key that limitation() names is a bad value; one that another program has is taken. While
    /// there is no daemon, success: it is registered as soon as there is one.
    [[nodiscard]] HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                    HotKeyIdentifier identifier) override;
    [[nodiscard]] Subscription installEventHandler(Handler handler) override;
    void addEventTypes(HotKeyEventTypes types) override;
    void removeEventTypes(HotKeyEventTypes types) override;
    void setActions(std::function<std::vector<HotKeyAction>()> actions) override;

  private:
    [[nodiscard]] QStringList action(HotKeyCombination combination) const;
    [[nodiscard]] QDBusMessage ask(const char* method, const QVariantList& arguments) const;
    [[nodiscard]] QList<int> qtKeys(HotKeyCombination combination) const;
    [[nodiscard]] std::int32_t take(HotKeyCombination combination) const;
    void takeAll() const;
    void release(HotKeyCombination combination) const;
    void receive(const QDBusMessage& signal, void (HotKeyTable::*report)(HotKeyCombination));

    DesktopHotKeysSurroundings surroundings_;
    HotKeyTable table_;
    std::function<std::vector<HotKeyAction>()> actions_;
    BusSignal pressed_;
    BusSignal released_;
    QDBusServiceWatcher daemon_;
    Subscription layoutChanges_;
};

/// Lets the daemon forget every key of a program, also those that an earlier run left behind. True
/// without a daemon; false if one does not do it.
[[nodiscard]] bool forgetKdeKeys(const QDBusConnection& bus, const QString& identifier);

} // namespace calmora
