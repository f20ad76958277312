// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace calmora {

/// A stored value; a value keeps the type with which it was written.
using DefaultsValue = std::variant<bool, std::int64_t, std::string, std::vector<std::string>>;

/// The persistent key/value store of the program's preferences.
class UserDefaults {
  public:
    virtual ~UserDefaults() = default;

    /// Adds default values for keys that are not set. They are never written to disk.
    virtual void registerDefaults(std::map<std::string, DefaultsValue> defaults) = 0;

    /// The stored value of a key, else its registered default; absent if there is neither.
    [[nodiscard]] virtual std::optional<DefaultsValue> value(const std::string& key) const = 0;

    /// The boolean under a key. A value of another type reads as the registered default; without
    /// one the answer is false.
    [[nodiscard]] virtual bool boolean(const std::string& key) const = 0;

    /// The integer under a key. Another type reads as the registered default, without one 0.
    [[nodiscard]] virtual std::int64_t integer(const std::string& key) const = 0;

    /// The string under a key. Another type reads as the registered default, without one absent.
    [[nodiscard]] virtual std::optional<std::string> string(const std::string& key) const = 0;

    /// The keys that start with `prefix` and hold any value at all, also one of a type that
    /// DefaultsValue cannot hold; registered defaults are not among them. Ascending.
    [[nodiscard]] virtual std::vector<std::string> keys(const std::string& prefix) const = 0;

    /// The file that cannot be read or written at present, so that changes last only as long as the
    /// process; absent while all is well.
    [[nodiscard]] virtual std::optional<std::string> unusableFile() const = 0;

    /// Calls `handler` after unusableFile() changed, until the token ends.
    [[nodiscard]] virtual Subscription onUsabilityChanged(std::function<void()> handler) = 0;

    /// Sets a key. Written to disk no later than the next turn of the main loop. A failure to write
    /// is absorbed, see unusableFile(), and writing is tried again.
    virtual void set(const std::string& key, DefaultsValue value) = 0;

    /// Removes a key; its registered default applies again.
    virtual void remove(const std::string& key) = 0;
};

} // namespace calmora
