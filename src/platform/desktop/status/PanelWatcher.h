#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <functional>

namespace calmora {

/// Follows the panel's register of status items (org.kde.StatusNotifierWatcher). Never blocks.
class PanelWatcher {
  public:
    enum class Panel {
        /// The bus has not answered yet.
        unknown,
        /// No bus, or no register on it.
        absent,
        present,
        /// GNOME's shell has it, whose extensions open the menu on a left click.
        gnomeShell,
    };

    /// `onPanel` is called from the main loop when the bus has answered, then after each change of
    /// the register's owner.
    PanelWatcher(const QDBusConnection& connection, std::function<void(Panel)> onPanel);
    PanelWatcher(const PanelWatcher&) = delete;
    PanelWatcher& operator=(const PanelWatcher&) = delete;

    [[nodiscard]] Panel panel() const { return panel_; }

  private:
    void setOwner(const QString& owner);
    void setPanel(Panel panel);

    QDBusConnection connection_;
    std::function<void(Panel)> onPanel_;
    Panel panel_ = Panel::unknown;
    /// Unique name of the register's owner; empty when there is none.
    QString owner_;
    QDBusServiceWatcher watcher_;
};

} // namespace calmora
