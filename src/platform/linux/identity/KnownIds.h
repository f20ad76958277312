// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace calmora {

/// A desktop file id and the well-known identifier of the same application.
struct KnownId {
    std::string_view desktopId;
    std::string_view wellKnown;
};

/// All pairs, sorted by desktop id, without duplicate ids.
[[nodiscard]] std::span<const KnownId> knownIds();

/// The well-known identifier of a desktop id, else the id itself. Case-sensitive.
[[nodiscard]] std::string wellKnownIdentifier(std::string_view desktopId);

} // namespace calmora
