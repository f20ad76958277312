#include "model/SoundPlayer.h"

#include "platform/Bundle.h"
#include "platform/Sound.h"

namespace calmora {

SoundPlayer::SoundPlayer(Platform platform) {
    if (const auto file = platform.bundle.resource("quit-sound", "wav")) {
        quitSound_ = platform.sounds.load(*file);
    }
}

SoundPlayer::~SoundPlayer() = default;

void SoundPlayer::playQuitSound() {
    if (quitSound_) {
        quitSound_->stop();
        quitSound_->play();
    }
}

} // namespace calmora
