// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/ShellStatusItem.h"

#include "platform/gnome/backend/ShellLink.h"
#include "support/ShownName.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace calmora {
namespace {

constexpr auto title = "Calmora";
constexpr uint leftButton = 1;

/// An entry keeps its number while its title is the same, so that a click sent before a change of
/// the menu hits nothing else.
uint numberOf(const StatusMenuItem& item) {
    return item.title.empty() ? 0 : static_cast<uint>(qHash(QString::fromStdString(item.title), 1));
}

} // namespace

ShellStatusItem::ShellStatusItem(ShellLink& link, std::unique_ptr<QtStatusItem> other,
                                 std::function<void(bool)> onMenu)
    : link_(link), other_(std::move(other)), onMenu_(std::move(onMenu)) {
    subscriptions_.push_back(link_.onStateChanged([this] { stateChanged(); }));
    subscriptions_.push_back(link_.onIconActivated([this](uint button) {
        if (button == leftButton && action_) {
            action_(StatusEvent::leftMouseUp);
        }
    }));
    subscriptions_.push_back(link_.onMenuOpened([this](bool isOpen) {
        if (isOpen) {
            updateMenu();
        }
        onMenu_(isOpen);
    }));
    subscriptions_.push_back(link_.onMenuActivated([this](uint id) { menuActivated(id); }));
    stateChanged();
}

void ShellStatusItem::stateChanged() {
    other_->setHidden(link_.state() != ShellLink::State::absent);
    onMenu_(false);
    updateMenu();
}

void ShellStatusItem::setTemplateImage(const std::optional<Image>& image, int points) {
    other_->setTemplateImage(image, points);
    const auto file = image ? recolorableFile(*image) : std::filesystem::path();
    link_.setIcon(QString::fromStdString(file.string()), title);
}

void ShellStatusItem::setAction(std::function<void(StatusEvent)> action) {
    other_->setAction(action);
    action_ = std::move(action);
}

void ShellStatusItem::setMenu(std::function<std::vector<StatusMenuItem>()> build) {
    other_->setMenu(build);
    build_ = std::move(build);
    updateMenu();
}

void ShellStatusItem::popUpMenu() {
    if (!link_.isAttached()) {
        other_->popUpMenu();
    }
}

std::optional<Rect> ShellStatusItem::frame() const {
    auto icon = link_.icon();
    if (!icon) {
        return other_->frame();
    }
    // The shell counts the screen's own pixels on X11, and Xwayland the same as the shell.
    const double ratio = qGuiApp->devicePixelRatio();
    const auto scaled = [ratio](int length) { return static_cast<int>(length / ratio); };
    return Rect{scaled(icon->x), scaled(icon->y), scaled(icon->width), scaled(icon->height)};
}

void ShellStatusItem::updateMenu() {
    if (!build_) {
        return;
    }
    QList<ShellMenuItem> items;
    for (const StatusMenuItem& item : build_()) {
        items.append(
            {numberOf(item), QString::fromStdString(shownName(item.title)), item.isEnabled});
    }
    link_.setMenu(items);
}

void ShellStatusItem::menuActivated(uint id) {
    for (const StatusMenuItem& item : build_ ? build_() : std::vector<StatusMenuItem>()) {
        if (id != 0 && numberOf(item) == id && item.isEnabled && item.action) {
            item.action();
            return;
        }
    }
}

} // namespace calmora
