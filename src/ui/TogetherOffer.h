// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ListNote.h"

#include <functional>
#include <optional>

namespace calmora {

class ExtraSettings;

/// The offer to let quits run side by side, made once; absent where it was answered, or they do.
/// `answered` is called after the answer was stored. `extras` must outlive the offer.
[[nodiscard]] std::optional<NoteOffer> togetherOffer(ExtraSettings& extras,
                                                     std::function<void()> answered);

} // namespace calmora
