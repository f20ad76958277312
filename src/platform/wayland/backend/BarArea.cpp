// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/BarArea.h"

#include <algorithm>

namespace calmora {

namespace {

constexpr int halfOfThickestPanel = 40;

struct Span {
    int from = 0;
    int length = 0;
};

/// What a bar leaves between two edges.
Span freeSpan(int whole, int usable, std::optional<int> pointer) {
    const int reserved = whole - usable;
    if (pointer && *pointer < reserved) {
        return {reserved, usable};
    }
    if (pointer && *pointer >= usable) {
        return {0, usable};
    }
    return {reserved, std::max(usable - reserved, usable / 2)};
}

} // namespace

Rect areaBesideBars(Size whole, Size usable, std::optional<Point> pointer) {
    const Span x =
        freeSpan(whole.width, usable.width, pointer ? std::optional(pointer->x) : std::nullopt);
    const Span y =
        freeSpan(whole.height, usable.height, pointer ? std::optional(pointer->y) : std::nullopt);
    return {x.from, y.from, x.length, y.length};
}

Size usableBesideIcon(Size whole, Size usable, Point icon) {
    const int vertical = std::min(icon.y, whole.height - icon.y);
    const int horizontal = std::min(icon.x, whole.width - icon.x);
    if (usable != whole) {
        return usable;
    }
    if (vertical <= halfOfThickestPanel) {
        return {usable.width, usable.height - 2 * vertical};
    }
    return {usable.width - (horizontal <= halfOfThickestPanel ? 2 * horizontal : 0), usable.height};
}

bool isInBar(Point place, const Rect& area) {
    return place.x < area.x || place.x >= area.x + area.width || place.y < area.y ||
           place.y >= area.y + area.height;
}

} // namespace calmora
