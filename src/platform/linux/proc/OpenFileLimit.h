#pragma once

#include <cstddef>

namespace calmora {

/// Raises the soft limit of open files to the hard one: one file is kept open for each listed
/// application, and the usual soft limit of 1024 only suits select(2).  Source: getrlimit(2).
void raiseOpenFileLimit();

/// The soft limit of open files.
[[nodiscard]] std::size_t openFileLimit();

} // namespace calmora
