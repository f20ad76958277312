// SPDX-License-Identifier: MIT
#include "platform/desktop/CanberraSoundOutput.h"

#include <cstdlib>

namespace calmora {
namespace {

TEST(CanberraSound, IsSilentAndQuickWithoutASoundServer) {
    ::setenv("PULSE_SERVER", "unix:/nonexistent", 1);
    ::setenv("CANBERRA_DRIVER", "pulse", 1);
    CanberraSoundOutput output("Test", "test");
    EXPECT_EQ(output.load("/nonexistent.wav"), nullptr);
    const auto sound = output.load(QUIT_SOUND);
    ASSERT_NE(sound, nullptr);
    const auto start = std::chrono::steady_clock::now();
    sound->stop();
    sound->play();
    sound->stop();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{2});
}

} // namespace
} // namespace calmora
