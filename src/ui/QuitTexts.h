// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "model/QuitTogether.h"

#include <QString>

namespace calmora {

/// What a row says in place of its figures; empty for nothing.
[[nodiscard]] QString quitText(QuitState state);

/// "5 quit, 1 left · 1.2 GB freed".
[[nodiscard]] QString resultText(const QuitResult& result);

} // namespace calmora
