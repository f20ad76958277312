// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Bundle.h"
#include "platform/Platform.h"
#include "platform/Sound.h"

#include <memory>

namespace calmora {

/// Plays a short sound when the user has quit applications.
class SoundPlayer {
  public:
    /// Finds the sound; without a readable file the player is silent.
    explicit SoundPlayer(Platform platform) {
        if (const auto file = platform.bundle.resource("quit-sound", "wav")) {
            quitSound_ = platform.sounds.load(*file);
        }
    }

    /// Restarts the sound. Returns at once.
    void playQuitSound() {
        if (quitSound_) {
            quitSound_->stop();
            quitSound_->play();
        }
    }

  private:
    std::unique_ptr<Sound> quitSound_;
};

} // namespace calmora
