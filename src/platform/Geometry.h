// SPDX-License-Identifier: MIT
#pragma once

namespace calmora {

/// A place on the virtual screen, in device-independent pixels from its top left corner.
struct Point {
    int x = 0;
    int y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

/// An extent in device-independent pixels.
struct Size {
    int width = 0;
    int height = 0;

    friend bool operator==(const Size&, const Size&) = default;
};

/// A rectangle on the virtual screen, in device-independent pixels.
struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const Rect&, const Rect&) = default;
};

} // namespace calmora
