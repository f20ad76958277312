#pragma once

#include <string>

namespace calmora {

class X11Connection;

/// The name of the running window manager; empty when there is none that tells.
/// Source: EWMH, _NET_SUPPORTING_WM_CHECK.
[[nodiscard]] std::string windowManagerName(const X11Connection& connection);

} // namespace calmora
