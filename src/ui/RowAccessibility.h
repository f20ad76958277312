#pragma once

namespace calmora {

/// Lets screen readers know the rows of a list as list items, headings and groups. May be called
/// again.
void installRowAccessibility();

} // namespace calmora
