#pragma once

#include <string>
#include <string_view>

namespace calmora {

/// The path of the regular file that this absolute path leads to, all links resolved; empty where
/// there is none.  Cost: about 8 µs.
[[nodiscard]] std::string resolvedFile(const std::string& path);

/// The interpreter that a script's first line names: "python3" for "#!/usr/bin/env python3".
/// Empty for everything else. Pure.
[[nodiscard]] std::string scriptInterpreterOf(std::string_view firstBytes);

/// The same for a file; empty also for one that cannot be read.  Cost: about 5 µs.
[[nodiscard]] std::string scriptInterpreter(const std::string& path);

} // namespace calmora
