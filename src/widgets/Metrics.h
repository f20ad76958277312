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

/// Width and height of a switch.
inline constexpr int switchWidth = 34;
inline constexpr int switchHeight = 20;

/// Around the text and the chevron of a picker, and the size of the chevron.
inline constexpr int pickerInset = 9;
inline constexpr int chevronPoints = 8;

/// Opacity of a disabled control.
inline constexpr double disabledOpacity = 0.5;

/// The space that a focus ring needs around its control.
inline constexpr int focusRing = 3;

/// Left and right of the cards of a form, and above the first section.
inline constexpr int formMargin = 20;
/// Between two sections of a form.
inline constexpr int sectionGap = 18;
/// Between a section's title and its card.
inline constexpr int titleGap = 7;
/// Left and right in a row of a card.
inline constexpr int rowInset = 12;
/// Above and below the content of a row.
inline constexpr int rowPadding = 6;
/// The minimum height of a row of a form.
inline constexpr int formRow = 38;
/// Between the parts of a row.
inline constexpr int rowSpacing = 8;

} // namespace calmora::metrics
