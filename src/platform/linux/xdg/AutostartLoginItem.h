// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"
#include "platform/linux/xdg/BaseDirectories.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// The program's autostart file. The user's file overrides the system's; both are read each time.
/// Source: freedesktop Desktop Application Autostart Specification.
class AutostartLoginItem final : public LoginItem {
  public:
    /// `applicationId` names the file, "<id>.desktop"; `program` is the absolute path of the
    /// running program.
    AutostartLoginItem(const BaseDirectories& directories, std::string applicationId,
                       std::filesystem::path program);

    [[nodiscard]] bool isEnabled() const override;

    /// On: writes the user's file for the running program. Off: removes it, or hides the system's
    /// file if there is one. False if writing fails.
    bool setEnabled(bool isEnabled) override;

  private:
    /// The system's autostart file; absent if none.
    [[nodiscard]] std::optional<std::filesystem::path> systemFile() const;

    std::string applicationId_;
    std::filesystem::path program_;
    std::filesystem::path userFile_;
    std::vector<std::filesystem::path> systemFiles_;
};

} // namespace calmora
