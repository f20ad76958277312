#pragma once

#include "platform/Sound.h"

#include <string>
#include <vector>

namespace calmora {

/// Makes silent sounds.
class FakeSoundOutput final : public SoundOutput {
  public:
    std::unique_ptr<Sound> load(const std::filesystem::path&) override {
        return std::make_unique<Silent>(calls);
    }

    /// "stop" and "play" of every sound, in order.
    std::vector<std::string> calls;

  private:
    struct Silent final : Sound {
        explicit Silent(std::vector<std::string>& all) : heard(all) {}

        void stop() override { heard.emplace_back("stop"); }

        void play() override { heard.emplace_back("play"); }

        std::vector<std::string>& heard;
    };
};

} // namespace calmora
