// SPDX-License-Identifier: MIT
#include "platform/desktop/status/QtStatusItem.h"

#include "platform/LocalizedStrings.h"
#include "platform/desktop/status/Glyph.h"
#include "support/ShownName.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPalette>
#include <QScreen>

#include <array>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

namespace calmora {
namespace {

/// Keys that stand for Command; the first is shown.
constexpr std::array commands{Qt::ControlModifier, Qt::MetaModifier};

constexpr auto title = "Calmora";
/// Side of a panel's icon, about.
constexpr int usualSide = 22;
/// Time from the click that closes the popover to the panel's word that its menu is open.
constexpr std::chrono::milliseconds menuDelay{500};
/// Time without a tool tip after a menu took the popover's place: some panels do not tell when
/// their menu closes, and all draw a tool tip that comes back over it.
constexpr std::chrono::seconds toolTipPause{30};

bool isX11() {
    return QGuiApplication::platformName() == "xcb";
}

/// The X server of a Wayland compositor knows only where the pointer was last above an X11 window.
bool hasStalePointer() {
    return isX11() && qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

/// Whether the desktop's panel recolours no icons. There the glyph is sent as pixels that contrast
/// with the bar, if the screen can be read.
bool drawsNamesAsTheyAre() {
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(':');
    return isX11() && QGuiApplication::primaryScreen() &&
           (desktops.contains("LXQt") || desktops.contains("MATE"));
}

} // namespace

std::filesystem::path recolorableFile(const Image& image) {
    const auto file = image.file.parent_path() / (image.file.stem().string() + "-symbolic.svg");
    std::error_code error;
    return std::filesystem::exists(file, error) ? file : std::filesystem::path();
}

StatusMenu::StatusMenu(const std::vector<StatusMenuItem>& items) {
    setObjectName("statusMenu");
    for (const StatusMenuItem& item : items) {
        if (item.title.empty()) {
            addSeparator();
            continue;
        }
        QAction* action =
            addAction(QString::fromStdString(shownName(item.title)).replace('&', "&&"));
        action->setEnabled(item.isEnabled);
        if (!item.keyEquivalent.empty()) {
            const QKeySequence key(QString::fromStdString(item.keyEquivalent).toUpper());
            QList<QKeySequence> shortcuts;
            for (const Qt::KeyboardModifier command : commands) {
                shortcuts += QKeySequence(QKeyCombination(command, key[0].key()));
            }
            action->setShortcuts(shortcuts);
            action->setShortcutVisibleInContextMenu(true);
        }
        if (item.action) {
            connect(action, &QAction::triggered, action, item.action);
        }
    }
}

void StatusMenu::keyPressEvent(QKeyEvent* event) {
    const QKeySequence pressed(event->keyCombination());
    for (QAction* action : actions()) {
        if (action->isEnabled() && action->shortcuts().contains(pressed)) {
            hide();
            action->trigger();
            return;
        }
    }
    QMenu::keyPressEvent(event);
}

QtStatusItem::QtStatusItem(const QDBusConnection& bus, const std::string& applicationId,
                           const LocalizedStrings& strings, std::function<void(bool)> onPanelMenu)
    : strings_(strings), onPanelMenu_(std::move(onPanelMenu)),
      menu_(
          bus, [this] { return buildMenu(); }, [this](bool isOpen) { setPanelMenuOpen(isOpen); },
          [this] { panelMenuShows(); }),
      item_(bus, QString::fromStdString(applicationId), title, MenuObject::path,
            {.activate = [this](Point place) { clicked(StatusEvent::leftMouseUp, place); },
             .contextMenu = [this](Point place) { clicked(StatusEvent::rightMouseUp, place); }}),
      watcher_(bus, [this](PanelWatcher::Panel panel) { panelChanged(panel); }) {
    qApp->installEventFilter(this);
    toolTipPause_.setSingleShot(true);
    connect(&toolTipPause_, &QTimer::timeout, this, [this] { updateToolTip(); });
}

QtStatusItem::~QtStatusItem() = default;

void QtStatusItem::setTemplateImage(const std::optional<Image>& image, int /*points*/) {
    image_ = image;
    publishIcon();
}

void QtStatusItem::setMenu(std::function<std::vector<StatusMenuItem>()> build) {
    build_ = std::move(build);
    menu_.update();
}

void QtStatusItem::popUpMenu() {
    StatusMenu menu(buildMenu());
    menu.exec(menuPlace(menu.sizeHint().height()));
}

QPoint QtStatusItem::menuPlace(int height) const {
    if (trayIcon_) {
        if (const auto icon = trayIcon_->geometry()) {
            // Beside the bar: below it at the top of the screen, above it at the bottom.
            const QScreen* screen = QGuiApplication::screenAt({icon->x, icon->y});
            const bool isBottom = screen && icon->y > screen->geometry().center().y();
            return {icon->x, isBottom ? icon->y - height : icon->y + icon->height};
        }
    }
    if (lastClick_) {
        return {lastClick_->x, lastClick_->y};
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    return hasStalePointer() && screen ? screen->availableGeometry().topRight() : QCursor::pos();
}

std::optional<Rect> QtStatusItem::frame() const {
    if (trayIcon_) {
        if (const auto place = trayIcon_->geometry()) {
            return place;
        }
    }
    if (!lastClick_) {
        return std::nullopt;
    }
    return Rect{lastClick_->x - usualSide / 2, lastClick_->y - usualSide / 2, usualSide, usualSide};
}

bool QtStatusItem::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) {
        publishIcon();
    }
    return false;
}

void QtStatusItem::setPopoverShown(bool isShown) {
    if (isPopoverShown_ && !isShown) {
        popoverClosed_.setRemainingTime(menuDelay);
    }
    isPopoverShown_ = isShown;
    updateToolTip();
    if (trayIcon_) {
        trayIcon_->setToolTip(isShown ? QString() : QString(title));
    }
}

void QtStatusItem::updateToolTip() {
    item_.setToolTipShown(!isPopoverShown_ && !isPanelMenuOpen_ && !toolTipPause_.isActive());
}

void QtStatusItem::panelMenuShows() {
    hidesPopover_ = isPopoverShown_ || !popoverClosed_.hasExpired();
    if (hidesPopover_) {
        toolTipPause_.start(toolTipPause);
        updateToolTip();
    }
    if (isPopoverShown_) {
        act(StatusEvent::leftMouseUp);
    }
}

void QtStatusItem::setPanelMenuOpen(bool isOpen) {
    isPanelMenuOpen_ = isOpen;
    if (isOpen) {
        panelMenuShows();
    } else {
        toolTipPause_.stop();
    }
    updateToolTip();
    if (onPanelMenu_) {
        onPanelMenu_(isOpen);
    }
}

void QtStatusItem::setHidden(bool isHidden) {
    if (std::exchange(isHidden_, isHidden) == isHidden) {
        return;
    }
    item_.setHidden(isHidden);
    if (isHidden) {
        trayIcon_.reset();
    } else if (watcher_.panel() != PanelWatcher::Panel::unknown) {
        panelChanged(watcher_.panel());
    }
}

void QtStatusItem::panelChanged(PanelWatcher::Panel panel) {
    setPanelMenuOpen(false);
    if (isHidden_) {
        return;
    }
    if (panel == PanelWatcher::Panel::absent) {
        if (!trayIcon_ && isX11()) {
            trayIcon_ = std::make_unique<TrayIcon>(title, [this](StatusEvent event) {
                if (const auto place = trayIcon_->geometry()) {
                    lastClick_ = {place->x + place->width / 2, place->y + place->height / 2};
                }
                // Not from within Qt's icon: a menu may stay open until the icon is gone.
                QTimer::singleShot(0, this, [this, event] { act(event); });
            });
            trayIcon_->setGlyph(image_);
        }
        return;
    }
    trayIcon_.reset();
    menu_.update();
    item_.announce();
    if (drawsNamesAsTheyAre()) {
        // A panel that has just come is not painted yet.
        for (const auto delay : latePaintings) {
            QTimer::singleShot(delay, this, [this] { publishIcon(); });
        }
    }
}

void QtStatusItem::clicked(StatusEvent event, Point place) {
    setPanelMenuOpen(false);
    // Panels pass the pointer's place, the icon's, or nothing. On X11 the pointer can be asked.
    if (isX11() && !hasStalePointer()) {
        const QPoint pointer = QCursor::pos();
        lastClick_ = {pointer.x(), pointer.y()};
    } else if (place != Point{}) {
        lastClick_ = place;
    }
    act(event);
}

void QtStatusItem::act(StatusEvent event) {
    if (action_) {
        action_(event);
    }
}

void QtStatusItem::showOrHide() {
    // The menu that this comes from has taken the focus, which closes the popover.
    if (isPopoverShown_ || !std::exchange(hidesPopover_, false)) {
        act(StatusEvent::leftMouseUp);
    }
}

void QtStatusItem::publishIcon() {
    NotifierItem::Icon icon;
    if (image_) {
        QColor color = QApplication::palette().color(QPalette::WindowText);
        if (drawsNamesAsTheyAre()) {
            if (const QColor bar = barColor(*QGuiApplication::primaryScreen()); bar.isValid()) {
                color = glyphColorOn(bar);
            }
        } else {
            icon.name = QString::fromStdString(recolorableFile(*image_).stem().string());
            icon.themePath = QString::fromStdString(image_->file.parent_path().string());
        }
        icon.pixmaps = glyphPixmaps(*image_, color);
    }
    item_.setIcon(icon);
    if (trayIcon_) {
        trayIcon_->setGlyph(image_);
    }
}

std::vector<StatusMenuItem> QtStatusItem::buildMenu() {
    std::vector<StatusMenuItem> items;
    if (watcher_.panel() == PanelWatcher::Panel::gnomeShell) {
        items.push_back({.title = strings_.text("Show/Hide Calmora"),
                         .keyEquivalent = {},
                         .isEnabled = true,
                         .action = [this] { showOrHide(); }});
        items.push_back({});
    }
    if (build_) {
        for (StatusMenuItem& item : build_()) {
            items.push_back(std::move(item));
        }
    }
    return items;
}

} // namespace calmora
