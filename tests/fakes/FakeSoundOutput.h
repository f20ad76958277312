#pragma once

#include "platform/Sound.h"

#include <string>
#include <vector>

namespace calmora {

/// Makes silent sounds.
class FakeSoundOutput final : public SoundOutput {
  public:
    [[nodiscard]] std::unique_ptr<Sound> load(const std::filesystem::path& file) override {
        loaded.push_back(file);
        return isReadable ? std::make_unique<Silent>(calls) : nullptr;
    }

    /// Whether load() makes a sound.
    bool isReadable = true;
    std::vector<std::filesystem::path> loaded;
    /// "stop" and "play" of every sound, in order.
    std::vector<std::string> calls;

  private:
    class Silent final : public Sound {
      public:
        explicit Silent(std::vector<std::string>& calls) : calls_(calls) {}

        void stop() override { calls_.emplace_back("stop"); }

        void play() override { calls_.emplace_back("play"); }

      private:
        std::vector<std::string>& calls_;
    };
};

} // namespace calmora
