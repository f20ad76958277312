#pragma once

#include "updates/Release.h"

#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// Reads the releases of an AppStream metainfo file, or of a file that holds only its <releases>.
/// Notes become plain text: paragraphs and list items, in the first of `languages` (such as
/// "de_DE", "de") that they are wholly translated to, else as they were written.
///
/// What is not well-formed, not UTF-8, has a document type, or is larger, deeper or more than any
/// list of releases is refused as a whole, and so is a list with a version that is none. The time
/// it takes grows with the size of the text alone.
/// Source: freedesktop AppStream, "Metainfo files" and "Releases".
[[nodiscard]] ReleaseList readReleases(std::string_view xml,
                                       const std::vector<std::string>& languages = {});

} // namespace calmora
