// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>

namespace calmora {

/// The connection to the desktop's sound server. Nothing waits; failures are absorbed.
class SoundServer {
  public:
    virtual ~SoundServer() = default;

    /// Starts to play a file under a number of the caller's.
    virtual void play(std::uint32_t sound, const std::filesystem::path& file) = 0;

    /// Ends the playing of a number.
    virtual void cancel(std::uint32_t sound) = 0;
};

/// The function that the library "sound" exports. Connects under the name and the identifier that
/// the server shows; the caller owns the result.
using OpenSoundServer = SoundServer*(const char* applicationName, const char* applicationId);
inline constexpr const char* openSoundServerName = "calmoraOpenSoundServer";

} // namespace calmora
