#pragma once

#include "platform/Bundle.h"

#include <filesystem>
#include <optional>
#include <string>

namespace calmora {

/// The program's installation. Resources are in ../share/calmora relative to the executable's
/// folder, both installed and in the build tree.
class InstalledBundle final : public Bundle {
  public:
    /// `executableFolder` empty means that of the running program.
    InstalledBundle(std::string identifier, std::string version,
                    std::filesystem::path executableFolder = {});

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override {
        return identifier_.empty() ? std::nullopt : std::optional(identifier_);
    }

    [[nodiscard]] std::optional<std::string> shortVersion() const override {
        return version_.empty() ? std::nullopt : std::optional(version_);
    }

    [[nodiscard]] std::optional<std::filesystem::path>
    resource(const std::string& name, const std::string& extension) const override;

  private:
    std::string identifier_;
    std::string version_;
    std::filesystem::path resources_;
};

} // namespace calmora
