#pragma once

#include "autoquit/catalogue/KnownApps.h"

#include <span>
#include <string>

namespace calmora {

/// How auto-quit treats an application by the Categories of its desktop entry, the strictest of
/// them deciding. Where a category says too little, the safer behavior is taken. An entry without
/// categories is safe to quit.
/// Source: freedesktop Desktop Menu Specification, the registered categories.
[[nodiscard]] IdleBehavior behaviorOfCategories(std::span<const std::string> categories);

} // namespace calmora
