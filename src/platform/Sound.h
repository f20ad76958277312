#pragma once

#include <filesystem>
#include <memory>

namespace calmora {

/// One sound that can be played.
class Sound {
  public:
    virtual ~Sound() = default;

    /// Ends the playing; does nothing when it is silent.
    virtual void stop() = 0;

    /// Starts playing from the beginning and returns at once. Failures are absorbed.
    virtual void play() = 0;
};

/// Makes sounds from files.
class SoundOutput {
  public:
    virtual ~SoundOutput() = default;

    /// The sound in a file, which is read when it is played; null when the file is unreadable.
    [[nodiscard]] virtual std::unique_ptr<Sound> load(const std::filesystem::path& file) = 0;
};

} // namespace calmora
