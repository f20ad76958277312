// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Sound.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace calmora {

/// Plays sounds through the desktop's sound server. libcanberra is loaded when the first sound is
/// played. Playing never waits; it is silent without the library or a sound server.
/// Source: libcanberra, ca_context_play(); files must be WAV with 16 bits.
class CanberraSoundOutput final : public SoundOutput {
  public:
    /// Name and identifier under which the sound server shows the program.
    CanberraSoundOutput(std::string applicationName, std::string applicationId);

    /// The sound may outlive this object.
    [[nodiscard]] std::unique_ptr<Sound> load(const std::filesystem::path& file) override;

  private:
    class Player;
    class CanberraSound;

    std::shared_ptr<Player> player_;
    std::uint32_t lastSound_ = 0;
};

} // namespace calmora
