// SPDX-License-Identifier: MIT
#include "platform/qt/window/PopoverPlacement.h"

#include <algorithm>
#include <cstdint>

namespace calmora {

namespace {

/// Between the popover and the icon, panels and the edges of the screen.
constexpr int gap = 8;

enum class Edge { top, bottom, left, right };

int right(const Rect& rect) {
    return rect.x + rect.width;
}

int bottom(const Rect& rect) {
    return rect.y + rect.height;
}

Point centre(const Rect& rect) {
    return {rect.x + rect.width / 2, rect.y + rect.height / 2};
}

std::int64_t squaredDistance(const Rect& rect, Point point) {
    const std::int64_t x = std::max({rect.x - point.x, 0, point.x - right(rect) + 1});
    const std::int64_t y = std::max({rect.y - point.y, 0, point.y - bottom(rect) + 1});
    return x * x + y * y;
}

/// The first place of `length` from `from` on that ends before `to`.
int clampedStart(int wanted, int length, int from, int to) {
    return std::max(from, std::min(wanted, to - length));
}

/// The edge of the screen with the panel that holds the icon.
Edge panelEdge(const Rect& icon, const ScreenArea& screen, int height) {
    const Point middle = centre(icon);
    if (middle.y < screen.available.y) {
        return Edge::top;
    }
    if (middle.y >= bottom(screen.available)) {
        return Edge::bottom;
    }
    if (middle.x < screen.available.x) {
        return Edge::left;
    }
    if (middle.x >= right(screen.available)) {
        return Edge::right;
    }
    // A panel that reserves no room: below the icon if there is room, else where there is more.
    const int below = bottom(screen.available) - bottom(icon) - gap;
    const int above = icon.y - gap - screen.available.y;
    return below >= height || below >= above ? Edge::top : Edge::bottom;
}

/// The size without what would lie over the icon, if enough is left.
Size clearOf(const Rect& icon, Size size, const ScreenArea& screen, const Rect& area) {
    constexpr int enough = 240;
    const Edge edge = panelEdge(icon, screen, size.height);
    int room = size.height;
    if (edge == Edge::top) {
        room = bottom(area) - bottom(icon) - gap;
    } else if (edge == Edge::bottom) {
        room = icon.y - gap - area.y;
    }
    return {size.width, room >= enough ? std::min(size.height, room) : size.height};
}

Point besideIcon(Size size, const Rect& icon, const ScreenArea& screen) {
    const Point middle = centre(icon);
    switch (panelEdge(icon, screen, size.height)) {
    case Edge::top:
        return {middle.x - size.width / 2, bottom(icon) + gap};
    case Edge::bottom:
        return {middle.x - size.width / 2, icon.y - gap - size.height};
    case Edge::left:
        return {right(icon) + gap, middle.y - size.height / 2};
    case Edge::right:
        return {icon.x - gap - size.width, middle.y - size.height / 2};
    }
    return middle;
}

Point inCorner(Size size, const ScreenArea& screen) {
    const Rect& area = screen.available;
    if (area.y > screen.geometry.y) {
        return {right(area) - size.width, area.y};
    }
    const bool isPanelLeft = area.x > screen.geometry.x;
    const bool isPanelElsewhere =
        right(area) < right(screen.geometry) || bottom(area) < bottom(screen.geometry);
    return {isPanelLeft ? area.x : right(area) - size.width,
            isPanelLeft || isPanelElsewhere ? bottom(area) - size.height : area.y};
}

} // namespace

Rect placePopover(Size size, const std::optional<Rect>& icon, std::span<const ScreenArea> screens) {
    const ScreenArea* screen = &screens.front();
    if (icon) {
        screen = &*std::ranges::min_element(screens, {}, [&](const ScreenArea& candidate) {
            return squaredDistance(candidate.geometry, centre(*icon));
        });
    }
    const Rect& all = screen->available;
    const Rect area{all.x + gap, all.y + gap, std::max(1, all.width - 2 * gap),
                    std::max(1, all.height - 2 * gap)};
    const Size inside{std::min(size.width, area.width), std::min(size.height, area.height)};
    const Size fitting = icon ? clearOf(*icon, inside, *screen, area) : inside;
    // Where there is no icon, too far out: the gap moves it in.
    const Point wanted = icon ? besideIcon(fitting, *icon, *screen) : inCorner(fitting, *screen);
    return {clampedStart(wanted.x, fitting.width, area.x, right(area)),
            clampedStart(wanted.y, fitting.height, area.y, bottom(area)), fitting.width,
            fitting.height};
}

} // namespace calmora
