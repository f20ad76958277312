// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace calmora {

/// The strings that are set for each key of a schema now, by the key.
using SettingsValues = std::vector<std::pair<std::string, std::vector<std::string>>>;

/// The function that the library "gsettings" exports. Appends the values of a schema; nothing when
/// it is not installed. `path` says where, for a schema without a place of its own; null for one
/// that has a place.
using ReadGSettings = void(const char* schema, const char* path, SettingsValues& values);
inline constexpr const char* readGSettingsName = "calmoraReadGSettings";

/// Exported, too. Whether the user may change a key of a schema with a place of its own: false
/// where an administrator has fixed it, and without such a schema or key.
using MayWriteGSettings = bool(const char* schema, const char* key);
inline constexpr const char* mayWriteGSettingsName = "calmoraMayWriteGSettings";

/// Exported, too. Takes strings off a list of strings in a schema with a place of its own, and
/// waits until that is kept. False if one of them stays on it.
using RemoveFromGSettings = bool(const char* schema, const char* key,
                                 const std::vector<std::string>& strings);
inline constexpr const char* removeFromGSettingsName = "calmoraRemoveFromGSettings";

} // namespace calmora
