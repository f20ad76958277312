// SPDX-License-Identifier: MIT
#include "platform/desktop/CanberraSoundOutput.h"

#include "platform/desktop/SoundServer.h"
#include "support/LoadedLibrary.h"

#include <unistd.h>
#include <utility>

namespace calmora {

/// The one connection to the sound server, made when first needed.
class CanberraSoundOutput::Player {
  public:
    Player(std::string name, std::string id) : name_(std::move(name)), id_(std::move(id)) {}

    void play(std::uint32_t sound, const std::filesystem::path& file) {
        if (!std::exchange(isLoaded_, true)) {
            if (auto* open =
                    functionIn<OpenSoundServer>(loadedLibrary("sound"), openSoundServerName)) {
                server_.reset(open(name_.c_str(), id_.c_str()));
            }
        }
        if (server_) {
            server_->play(sound, file);
        }
    }

    void cancel(std::uint32_t sound) {
        if (server_) {
            server_->cancel(sound);
        }
    }

  private:
    std::string name_;
    std::string id_;
    bool isLoaded_ = false;
    std::unique_ptr<SoundServer> server_;
};

class CanberraSoundOutput::CanberraSound final : public Sound {
  public:
    CanberraSound(std::shared_ptr<Player> player, std::uint32_t number, std::filesystem::path file)
        : player_(std::move(player)), number_(number), file_(std::move(file)) {}

    void stop() override { player_->cancel(number_); }

    void play() override { player_->play(number_, file_); }

  private:
    std::shared_ptr<Player> player_;
    std::uint32_t number_;
    std::filesystem::path file_;
};

CanberraSoundOutput::CanberraSoundOutput(std::string applicationName, std::string applicationId)
    : player_(std::make_shared<Player>(std::move(applicationName), std::move(applicationId))) {}

std::unique_ptr<Sound> CanberraSoundOutput::load(const std::filesystem::path& file) {
    if (::access(file.c_str(), R_OK) != 0) {
        return nullptr;
    }
    return std::make_unique<CanberraSound>(player_, ++lastSound_, file);
}

} // namespace calmora
