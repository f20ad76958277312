// SPDX-License-Identifier: MIT
#include "support/Signal.h"

#include "platform/linux/identity/SyntheticIdentity.h"
#include "support/ShownName.h"

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

std::string repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

TEST(ShownName, IsOneSafeLine) {
    const std::string party = "\U0001F389";

    const struct {
        std::string given;
        std::string shown;
        /// The form in an identifier; empty if it is the same.
        std::string line = {};
    } rows[] = {
        {"<img src=\"/x\"> & _two_ &amp;", "<img src=\"/x\"> & _two_ &amp;"},
        {" a\tb\r\nc\x1b[31m\x7f ", "a b c [31m", "a b  c [31m"},
        {"a\u2028b\u2029c\u0085", "a b c"},
        {"evil\u202Egnp.exe", "evilgnp.exe", "evil\u202Egnp.exe"},
        {"\u061C\u200E\u200F\u2066x\u2069\u2067\u2068y\u202A\u202D", "xy",
         "\u061C\u200E\u200F\u2066x\u2069\u2067\u2068y\u202A\u202D"},
        {"\u200B\u200D\u00A0\u3164\uFE0F", "", "\u200B\u200D\u00A0\u3164\uFE0F"},
        {"\u0645\u06CC\u200C\u062E", "\u0645\u06CC\u200C\u062E"},
        {"\U0001F469\u200D\U0001F4BB", "\U0001F469\u200D\U0001F4BB"},
        {"a\xff!\xc0\xaf", "a\uFFFD!\uFFFD\uFFFD"},
        {"\xed\xa0\x80 cut \xe2\x82", "\uFFFD\uFFFD\uFFFD cut \uFFFD\uFFFD"},
        {repeated(party, 256), repeated(party, 256)},
        {repeated(party, 257), repeated(party, 256) + "…", repeated(party, 257)},
        {std::string(1'000'000, '<'), std::string(256, '<') + "…", std::string(1'000'000, '<')},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(shownName(row.given), row.shown);
        EXPECT_EQ(displayLine(row.given), row.line.empty() ? row.shown : row.line);
    }
}

} // namespace
} // namespace calmora
