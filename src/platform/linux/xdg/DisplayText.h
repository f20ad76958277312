#pragma once

#include <string>
#include <string_view>

namespace calmora {

/// Text from a file or another program made fit to show in one line: broken UTF-8 becomes U+FFFD,
/// control characters become blanks, and blanks at both ends are dropped.
[[nodiscard]] std::string displayLine(std::string_view text);

} // namespace calmora
