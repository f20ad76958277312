// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/dbus/BusNames.h"
#include "platform/desktop/dbus/Calls.h"
#include "platform/linux/workspace/BusApplications.h"
#include "support/Signal.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace calmora {

/// The programs on the session bus. Without a bus everything is empty.
class DbusApplications final : public BusApplications {
  public:
    explicit DbusApplications(const QDBusConnection& connection);

    [[nodiscard]] bool ownsStatusItem(ProcessId process) const override;
    [[nodiscard]] std::vector<ProcessId> statusItemProcesses() const override;
    [[nodiscard]] bool isMediaPlayer(ProcessId process) const override;
    bool quitMediaPlayer(ProcessId process) override;
    void learnActions(const ExportedActions& actions) override;
    bool activateQuit(const ExportedActions& actions) override;
    [[nodiscard]] std::vector<ProcessId> protectedProcesses() const override;

    [[nodiscard]] Subscription onChanged(std::function<void()> handler) override {
        return changed_.connect(std::move(handler));
    }

    void flush() override;

  private:
    using ActionsKey = std::pair<std::string, std::string>;

    void readItems();
    void itemChanged(const QDBusMessage& message);
    void setItems(std::set<QString> items);
    void playersChanged();
    void setCanQuit(const QString& uniqueName, bool canQuit);

    QDBusConnection connection_;
    Signal<> changed_;
    bool hasUnflushed_ = false;

    BusNames protected_;

    /// As the panel's watcher spells them: a bus name, often followed by a path.
    std::set<QString> items_;
    BusNames itemOwners_;

    BusNames players_;
    /// Unique names of the players that were asked whether they can quit.
    std::set<QString> askedPlayers_;
    /// Unique names of the players that say they can.
    std::set<QString> quittablePlayers_;

    std::set<ActionsKey> quitActions_;

    QDBusServiceWatcher panelWatcher_;
    std::vector<std::unique_ptr<BusSignal>> signals_;
};

} // namespace calmora
