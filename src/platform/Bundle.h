// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace calmora {

/// The program's own installation.
class Bundle {
  public:
    virtual ~Bundle() = default;

    /// The program's own application identifier.
    [[nodiscard]] virtual std::optional<std::string> bundleIdentifier() const = 0;

    /// The program's version; absent if unknown.
    [[nodiscard]] virtual std::optional<std::string> shortVersion() const = 0;

    /// The file of a resource, installed or in the build tree; absent if there is none.
    [[nodiscard]] virtual std::optional<std::filesystem::path>
    resource(const std::string& name, const std::string& extension) const = 0;
};

} // namespace calmora
