#include "support/Signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace calmora {
namespace {

TEST(Signal, CallsSubscribersInOrderUntilTheirTokensEnd) {
    Signal<int> signal;
    std::string heard;
    const auto say = [&](char who) {
        return signal.connect([&, who](int value) { heard += who + std::to_string(value); });
    };
    Subscription first = say('a');
    const Subscription second = say('b');
    signal.emit(1);
    first.reset();
    signal.emit(2);
    EXPECT_EQ(heard, "a1b1b2");
}

TEST(Signal, SurvivesSlotsThatChangeTheListOrDestroyIt) {
    auto signal = std::make_unique<Signal<>>();
    std::string heard;
    Subscription late;
    Subscription victim;
    const Subscription killer = signal->connect([&] {
        heard += "k";
        victim.reset();
        late = signal->connect([&] { heard += "l"; });
    });
    victim = signal->connect([&] { heard += "v"; });
    signal->emit();
    EXPECT_EQ(heard, "k");

    auto other = std::make_unique<Signal<>>();
    const Subscription destroyer = other->connect([&] { other.reset(); });
    const Subscription after = other->connect([&] { heard += "x"; });
    other->emit();
    EXPECT_EQ(heard, "kx") << "a destroyed signal still finishes its emission";
}

TEST(Signal, ReportsWhetherSomeoneListens) {
    std::string calls;
    Signal<> signal([&](bool listening) { calls += listening ? "+" : "-"; });
    {
        Subscription a = signal.connect([] {});
        Subscription b = signal.connect([] {});
        a.reset();
        EXPECT_EQ(calls, "+");
    }
    EXPECT_EQ(calls, "+-");
}

} // namespace
} // namespace calmora
