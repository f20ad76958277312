#pragma once

namespace calmora {

/// Lets this program open as many files as the system allows it. One is kept open for every listed
/// application, and the usual soft limit, a thousand, is for programs that use select(2).
/// Source: getrlimit(2).
void raiseOpenFileLimit();

} // namespace calmora
