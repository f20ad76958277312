// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace calmora {

/// Whether QXmlStreamReader can parse a text in linear time: it compares every attribute of a tag
/// with every other, 18 seconds for a tag of a megabyte. Also false for a text with declarations,
/// such as a document type, or with a tag that does not end.
[[nodiscard]] bool hasShortTags(std::string_view xml);

} // namespace calmora
