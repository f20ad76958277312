#pragma once

#include <string>
#include <string_view>

namespace calmora {

/// The regular file at an absolute path, all links resolved; empty if none. Cost: about 8 µs.
[[nodiscard]] std::string resolvedFile(const std::string& path);

/// The interpreter in a script's first line: "python3" for "#!/usr/bin/env python3". Empty for
/// other text. Pure.
[[nodiscard]] std::string scriptInterpreterOf(std::string_view firstBytes);

/// The same for a file; empty if unreadable. Cost: about 5 µs.
[[nodiscard]] std::string scriptInterpreter(const std::string& path);

} // namespace calmora
