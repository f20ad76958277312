#pragma once

#include "platform/Platform.h"

#include <memory>

namespace calmora {

class Sound;

/// Plays a short sound when the user has quit applications.
class SoundPlayer {
  public:
    /// Looks the sound up; a missing or unreadable file makes the player silent.
    explicit SoundPlayer(Platform platform);
    ~SoundPlayer();

    /// Plays the sound from its beginning, cutting off one that still plays. Returns at once.
    void playQuitSound();

  private:
    std::unique_ptr<Sound> quitSound_;
};

} // namespace calmora
