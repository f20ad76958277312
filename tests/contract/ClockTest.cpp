#include "fakes/FakeClock.h"
#include "platform/linux/proc/LinuxClock.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

template <typename Implementation>
struct ClockContract : testing::Test {
    Implementation clock;
};

using Implementations = testing::Types<FakeClock, LinuxClock>;
TYPED_TEST_SUITE(ClockContract, Implementations);

TYPED_TEST(ClockContract, SleepsAtLeastAsLongAsAskedByItsOwnTicks) {
    const Timebase ratio = this->clock.timebase();
    ASSERT_GT(ratio.numer, 0U);
    ASSERT_GT(ratio.denom, 0U);
    const auto wall = this->clock.now();
    const std::uint64_t start = this->clock.ticks();
    this->clock.sleep(std::chrono::microseconds(300));
    const std::uint64_t passed = this->clock.ticks() - start;
    EXPECT_GE(passed * ratio.numer / ratio.denom, 300'000U);
    EXPECT_GT(this->clock.now(), wall);
}

} // namespace
} // namespace calmora
