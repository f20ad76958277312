#include "fakes/FakeText.h"
#include "platform/linux/text/IcuText.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

struct Plain {
    FakeText text;
};

struct English {
    IcuText text{"en_US.UTF-8"};
};

template <typename Language>
struct TextContract : testing::Test {
    Language language;
    const Text& text = language.text;
};

using Implementations = testing::Types<Plain, English>;
TYPED_TEST_SUITE(TextContract, Implementations);

TYPED_TEST(TextContract, OrdersWithoutRegardToCase) {
    EXPECT_TRUE(this->text.compare("apple", "Beta") < 0);
    EXPECT_TRUE(this->text.compare("Zoom", "apple") > 0);
    EXPECT_TRUE(this->text.compare("XTerm", "xterm") == 0);
    EXPECT_TRUE(this->text.compare("", "a") < 0);
    EXPECT_TRUE(this->text.compare("Meld", "Meld 2") < 0);
}

TYPED_TEST(TextContract, FindsPartsWithoutRegardToCase) {
    EXPECT_TRUE(this->text.contains("Safari", "saf"));
    EXPECT_TRUE(this->text.contains("LibreOffice Calc", "OFFICE C"));
    EXPECT_TRUE(this->text.contains("Meld", ""));
    EXPECT_TRUE(this->text.contains("", ""));
    EXPECT_TRUE(this->text.contains("two words", " "));
    EXPECT_FALSE(this->text.contains("Safari", " "));
    EXPECT_FALSE(this->text.contains("saf", "Safari"));
    EXPECT_FALSE(this->text.contains("", "x"));
}

TYPED_TEST(TextContract, CapitalizesWords) {
    EXPECT_EQ(this->text.capitalized("PhotoEditor"), "Photoeditor");
    EXPECT_EQ(this->text.capitalized("two WORDS"), "Two Words");
    EXPECT_EQ(this->text.capitalized(""), "");
}

} // namespace
} // namespace calmora
