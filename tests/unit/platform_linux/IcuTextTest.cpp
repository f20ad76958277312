#include "platform/linux/IcuText.h"
#include "fakes/FakeText.h"

#include <gtest/gtest.h>

#include <string>

namespace calmora {
namespace {

TEST(IcuText, TreatsPlainWordsAsTheFakeDoes) {
    const FakeText fake;
    const IcuText english("en_US.UTF-8");
    for (const Text* text : std::initializer_list<const Text*>{&fake, &english}) {
        const char* const ordered[] = {"", "apple", "Beta", "Meld", "Meld 2", "Zoom"};
        for (std::size_t i = 1; i < std::size(ordered); ++i) {
            EXPECT_TRUE(text->compare(ordered[i - 1], ordered[i]) < 0) << ordered[i];
        }
        EXPECT_TRUE(text->compare("XTerm", "xterm") == 0);
        EXPECT_TRUE(text->contains("LibreOffice Calc", "OFFICE C") && text->contains("", ""));
        EXPECT_FALSE(text->contains("Safari", " ") || text->contains("saf", "Safari"));
        EXPECT_EQ(text->capitalized("PhotoEditor two WORDS"), "Photoeditor Two Words");
    }
}

TEST(IcuText, OrdersAsAReaderOfTheLanguageWould) {
    const IcuText german("de_DE.UTF-8");
    EXPECT_TRUE(german.compare("Ärger", "Zebra") < 0);
    EXPECT_TRUE(german.compare("resume", "résumé") != 0);
    // Ä is a letter of its own behind Z in Swedish.
    EXPECT_TRUE(IcuText("sv_SE").compare("Ärger", "Zebra") > 0);
    EXPECT_EQ(IcuText("tr_TR").capitalized("istanbul"), "İstanbul");
    for (const char* plain : {"C", "POSIX", "C.UTF-8", "no such locale", "xx_YY@zz.!"}) {
        EXPECT_TRUE(IcuText(plain).compare("b", "C") < 0) << plain;
    }
}

TEST(IcuText, FindsPartsInAnyLetterCase) {
    EXPECT_TRUE(IcuText("de_DE").contains("Ärger", "ÄR"));
    EXPECT_FALSE(IcuText("de_DE").contains("Ärger", "ar"));
    EXPECT_TRUE(IcuText("de_DE").contains("\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d", "\xd7\x9c"));
    EXPECT_TRUE(IcuText("de_DE").contains("\xf0\x9f\x98\x80 Smile", "smile"));
    EXPECT_TRUE(IcuText("tr_TR").contains("İstanbul", "i"));
}

TEST(IcuText, ToleratesBrokenAndVeryLongTexts) {
    const IcuText text("en_US");
    const std::string broken = "a\xff\xc3";
    EXPECT_TRUE(text.compare(broken, broken) == 0 && text.compare("a", broken) != 0);
    EXPECT_TRUE(text.contains(broken, "A"));
    EXPECT_FALSE(text.contains("a", "\xff"));
    EXPECT_EQ(text.capitalized(broken), "A\xef\xbf\xbd\xef\xbf\xbd");
    const std::string longText(10'000, 'x');
    EXPECT_TRUE(text.contains(longText + "Needle", "needle"));
    EXPECT_TRUE(text.compare(longText, longText + "a") < 0);
}

} // namespace
} // namespace calmora
