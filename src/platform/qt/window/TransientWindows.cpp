// SPDX-License-Identifier: MIT
#include "platform/qt/window/TransientWindows.h"

#include <QGuiApplication>
#include <QScreen>

namespace calmora {

namespace {

Rect fromQRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

} // namespace

PopoverSurroundings TransientWindows::popoverSurroundings(std::optional<Rect> icon) {
    PopoverSurroundings surroundings{icon, {}};
    for (const QScreen* screen : QGuiApplication::screens()) {
        surroundings.screens.push_back(
            {fromQRect(screen->geometry()), fromQRect(screen->availableGeometry())});
    }
    return surroundings;
}

} // namespace calmora
