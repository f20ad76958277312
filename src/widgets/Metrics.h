#pragma once

/// Measures that several views share, in device-independent pixels.
namespace calmora::metrics {

/// Left and right inset of everything in the popover.
inline constexpr int inset = 14;

/// Corner radii.
inline constexpr int buttonRadius = 10;
inline constexpr int fieldRadius = 8;
inline constexpr int rowRadius = 6;
inline constexpr int badgeRadius = 4;

/// Side of a check box.
inline constexpr int checkBox = 16;

/// How strongly a control that is off limits is drawn.
inline constexpr double disabledOpacity = 0.5;

/// Room that a focus ring needs around its control.
inline constexpr int focusRing = 3;

} // namespace calmora::metrics
