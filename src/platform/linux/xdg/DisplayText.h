#pragma once

#include <string>
#include <string_view>

namespace calmora {

/// Text from a file or another program as one line of valid UTF-8: broken UTF-8 becomes U+FFFD,
/// control characters become blanks, and blanks at both ends are dropped. Nothing else is dropped
/// or cut, so that what identifiers are made of stays different; what is shown is a shownName().
[[nodiscard]] std::string displayLine(std::string_view text);

} // namespace calmora
