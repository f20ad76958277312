#pragma once

#include "platform/Platform.h"

#include <memory>

namespace calmora {

class Sound;

/// Plays a short sound when the user has quit applications.
class SoundPlayer {
  public:
    /// Finds the sound; without a readable file the player is silent.
    explicit SoundPlayer(Platform platform);
    ~SoundPlayer();

    /// Restarts the sound. Returns at once.
    void playQuitSound();

  private:
    std::unique_ptr<Sound> quitSound_;
};

} // namespace calmora
