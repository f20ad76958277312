#pragma once

#include "platform/LoginItem.h"
#include "platform/linux/xdg/BaseDirectories.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// The program's file among what the session starts. The user's file decides before the system's;
/// both are read each time.
/// Source: freedesktop Desktop Application Autostart Specification.
class AutostartLoginItem final : public LoginItem {
  public:
    /// `applicationId` names the file, "<id>.desktop"; `program` is the absolute path of the
    /// running program.
    AutostartLoginItem(const BaseDirectories& directories, std::string applicationId,
                       std::filesystem::path program);

    [[nodiscard]] bool isEnabled() const override;

    /// On writes the user's file for the running program; off removes it, or, where the system
    /// has one, hides the system's. False when that cannot be written.
    bool setEnabled(bool isEnabled) override;

  private:
    /// The system's file that the session would start; absent where there is none.
    [[nodiscard]] std::optional<std::filesystem::path> systemFile() const;

    std::string applicationId_;
    std::filesystem::path program_;
    std::filesystem::path userFile_;
    std::vector<std::filesystem::path> systemFiles_;
};

} // namespace calmora
