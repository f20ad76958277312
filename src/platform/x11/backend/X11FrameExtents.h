// SPDX-License-Identifier: MIT
#pragma once

class QRect;
class QWindow;

namespace calmora {

/// Says that a window of ours shows only `inner` of itself, given in device pixels within it, and a
/// shadow around that, which lets the pointer through. Does nothing where Qt does not use X11.
/// Source: GTK, _GTK_FRAME_EXTENTS: left, right, top, bottom.
void setFrameExtents(const QWindow& window, const QRect& inner);

} // namespace calmora
