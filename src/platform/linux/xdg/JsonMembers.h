// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace calmora {

/// The members of a JSON object: each value as it is written, so that what other programs wrote
/// stays as it is, however deeply it is nested.
using JsonMembers = std::map<std::string, std::string>;

/// The members of the object that a text consists of; of equal keys the last. Absent for any other
/// text. A number that no double can hold costs only its own value. Linear time.
[[nodiscard]] std::optional<JsonMembers> readMembers(std::string_view text);

/// An object with these members, one a line.
[[nodiscard]] std::string writtenMembers(const JsonMembers& members);

/// The value of a member; absent for one of another type.
[[nodiscard]] std::optional<DefaultsValue> valueOfMember(const std::string& written);

/// A value as it is written. Broken UTF-8 becomes U+FFFD.
[[nodiscard]] std::string writtenMember(const DefaultsValue& value);

} // namespace calmora
