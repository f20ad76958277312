// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"
#include "platform/desktop/status/MenuObject.h"
#include "platform/desktop/status/NotifierItem.h"
#include "platform/desktop/status/TrayIcon.h"

#include <QDBusConnection>
#include <QMenu>
#include <QObject>
#include <QPoint>
#include <QTimer>

#include <QDeadlineTimer>
#include <filesystem>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

class LocalizedStrings;

/// The file of the picture's recolourable variant ("-symbolic" at the end of its name), if there is
/// one; else empty.
[[nodiscard]] std::filesystem::path recolorableFile(const Image& image);

/// The status item's menu where no panel draws it. Its key equivalents work while it is open.
class StatusMenu : public QMenu {
  public:
    explicit StatusMenu(const std::vector<StatusMenuItem>& items);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

/// The status item on Linux desktops: a StatusNotifierItem in a panel that takes one, else a legacy
/// tray icon. Works without either, and without a bus.
class QtStatusItem final : public QObject, public StatusItem {
  public:
    /// `applicationId` identifies the item to panels. `strings` must outlive it. `onPanelMenu` is
    /// called when a panel opens and closes its drawing of the menu; also for a panel that vanishes
    /// or sends a click instead of the close.
    QtStatusItem(const QDBusConnection& bus, const std::string& applicationId,
                 const LocalizedStrings& strings, std::function<void(bool)> onPanelMenu = {});
    ~QtStatusItem() override;

    /// If there is a "NAME-symbolic.svg" beside the image's file "NAME.svg", panels get that name
    /// and may recolour it. Panels that want pixels get them in the desktop's text colour.
    void setTemplateImage(const std::optional<Image>& image, int points) override;

    void setAction(std::function<void(StatusEvent)> action) override {
        action_ = std::move(action);
    }

    void setMenu(std::function<std::vector<StatusMenuItem>()> build) override;
    void popUpMenu() override;
    void setPopoverShown(bool isShown) override;

    /// The tray icon's rectangle; in a panel, which does not tell it, a square around the last
    /// click.
    [[nodiscard]] std::optional<Rect> frame() const override;

    /// Whether no panel and no tray shows it: the icon is elsewhere. Initially not.
    void setHidden(bool isHidden);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void setPanelMenuOpen(bool isOpen);
    /// The panel is about to draw the menu: the popover closes.
    void panelMenuShows();
    /// A tool tip would lie over the popover and over the panel's menu.
    void updateToolTip();
    void panelChanged(PanelWatcher::Panel panel);
    void clicked(StatusEvent event, Point place);
    void act(StatusEvent event);
    void publishIcon();
    /// The entry of GNOME's menu.
    void showOrHide();
    /// Where a menu of this height opens.
    [[nodiscard]] QPoint menuPlace(int height) const;
    [[nodiscard]] std::vector<StatusMenuItem> buildMenu();

    const LocalizedStrings& strings_;
    bool isPopoverShown_ = false;
    bool isPanelMenuOpen_ = false;
    QTimer toolTipPause_;
    /// Runs for a while after the popover has closed, perhaps because a menu opens.
    QDeadlineTimer popoverClosed_{0};
    /// Whether the popover was shown when the panel's menu was opened.
    bool hidesPopover_ = false;
    std::optional<Image> image_;
    std::function<void(bool)> onPanelMenu_;
    std::function<void(StatusEvent)> action_;
    std::function<std::vector<StatusMenuItem>()> build_;
    std::optional<Point> lastClick_;
    bool isHidden_ = false;
    MenuObject menu_;
    NotifierItem item_;
    std::unique_ptr<TrayIcon> trayIcon_;
    PanelWatcher watcher_;
};

} // namespace calmora
