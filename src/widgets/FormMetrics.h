#pragma once

#include "widgets/Metrics.h"

/// Measures of a settings form, in device-independent pixels.
namespace calmora::metrics {

/// Left and right of the cards, and above the first section.
inline constexpr int formMargin = 20;
/// Between two sections.
inline constexpr int sectionGap = 18;
/// Between a section's title and its card.
inline constexpr int titleGap = 7;
inline constexpr int cardRadius = buttonRadius;
/// Left and right in a row of a card.
inline constexpr int rowInset = 12;
/// Above and below the content of a row.
inline constexpr int rowPadding = 6;
/// The minimum height of a row.
inline constexpr int formRow = 38;
/// Between the parts of a row.
inline constexpr int rowSpacing = 8;

/// Corners of buttons and pickers.
inline constexpr int buttonCorner = rowRadius;

} // namespace calmora::metrics
