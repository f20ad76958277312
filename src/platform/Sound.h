// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>

namespace calmora {

/// One sound that can be played.
class Sound {
  public:
    virtual ~Sound() = default;

    /// Stops playing.
    virtual void stop() = 0;

    /// Starts playing from the beginning and returns at once. Failures are absorbed.
    virtual void play() = 0;
};

/// Makes sounds from files.
class SoundOutput {
  public:
    virtual ~SoundOutput() = default;

    /// The sound in a file, which is read when it is played; null if the file is unreadable.
    [[nodiscard]] virtual std::unique_ptr<Sound> load(const std::filesystem::path& file) = 0;
};

} // namespace calmora
