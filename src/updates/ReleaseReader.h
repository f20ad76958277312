// SPDX-License-Identifier: MIT
#pragma once

#include "updates/Release.h"

#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// Reads the releases of an AppStream metainfo file, or of a file that holds only its <releases>.
/// Notes become plain text: paragraphs and list items, in the first of `languages` (such as
/// "de_DE", "de") to which they are completely translated, else in the original.
///
/// The input is untrusted. A text that is malformed, not UTF-8, has a document type, is larger or
/// deeper than any list of releases, or has an invalid version is refused as a whole. Takes time
/// linear in the size of the text. Source: freedesktop AppStream, "Metainfo files" and "Releases".
[[nodiscard]] ReleaseList readReleases(std::string_view xml,
                                       const std::vector<std::string>& languages = {});

} // namespace calmora
