// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Bundle.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace calmora {

/// The program's installation. Resources are in ../share/calmora relative to the executable's
/// folder, both installed and in the build tree.
class InstalledBundle final : public Bundle {
  public:
    /// `executableFolder` empty means that of the running program.
    InstalledBundle(std::string identifier, std::string version,
                    std::filesystem::path executableFolder = {})
        : identifier_(std::move(identifier)), version_(std::move(version)) {
        std::error_code error;
        if (executableFolder.empty()) {
            executableFolder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
        }
        resources_ = (executableFolder / "../share/calmora").lexically_normal();
    }

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override {
        return identifier_.empty() ? std::nullopt : std::optional(identifier_);
    }

    [[nodiscard]] std::optional<std::string> shortVersion() const override {
        return version_.empty() ? std::nullopt : std::optional(version_);
    }

    [[nodiscard]] std::optional<std::filesystem::path>
    resource(const std::string& name, const std::string& extension) const override {
        std::filesystem::path file =
            resources_ / (extension.empty() ? name : name + "." + extension);
        std::error_code error;
        if (!std::filesystem::is_regular_file(file, error)) {
            return std::nullopt;
        }
        return file;
    }

  private:
    std::string identifier_;
    std::string version_;
    std::filesystem::path resources_;
};

} // namespace calmora
