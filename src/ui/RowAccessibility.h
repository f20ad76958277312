// SPDX-License-Identifier: MIT
#pragma once

namespace calmora {

/// Tells assistive technologies what a list's rows are (list items, headings, groups), in the order
/// in which they stand, and what can be done with them. May be called again.
void installRowAccessibility();

} // namespace calmora
