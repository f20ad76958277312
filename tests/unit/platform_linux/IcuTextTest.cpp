#include "platform/linux/text/IcuText.h"

#include <gtest/gtest.h>

#include <string>

namespace calmora {
namespace {

TEST(IcuText, OrdersAsAReaderOfTheLanguageWould) {
    const IcuText german("de_DE.UTF-8");
    EXPECT_TRUE(german.compare("Ärger", "Zebra") < 0);
    EXPECT_TRUE(german.compare("apfel", "Birne") < 0);
    EXPECT_TRUE(german.compare("resume", "résumé") != 0);
    // Ä is a letter of its own behind Z in Swedish.
    EXPECT_TRUE(IcuText("sv_SE").compare("Ärger", "Zebra") > 0);
    for (const char* plain : {"C", "POSIX", "C.UTF-8", "no such locale", "xx_YY@zz.!"}) {
        EXPECT_TRUE(IcuText(plain).compare("b", "C") < 0) << plain;
    }
}

TEST(IcuText, FindsPartsInAnyLetterCase) {
    const IcuText text("de_DE");

    struct Case {
        const char* whole;
        const char* part;
        bool found;
    };

    for (const auto& [whole, part, found] :
         {Case{"Firefox ESR", "fox e", true}, Case{"Ärger", "ÄR", true}, Case{"Ärger", "ar", false},
          Case{"Über uns", "ÜBER", true},
          Case{"\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d", "\xd7\x9c", true}, Case{"ab", "abc", false},
          Case{"\xf0\x9f\x98\x80 Smile", "smile", true}}) {
        EXPECT_EQ(text.contains(whole, part), found) << whole << " / " << part;
    }
    EXPECT_TRUE(IcuText("tr_TR").contains("İstanbul", "i"));
}

TEST(IcuText, WritesWordsWithAFirstCapital) {
    const IcuText text("en_US");
    EXPECT_EQ(text.capitalized("éCOLE"), "École");
    EXPECT_EQ(IcuText("tr_TR").capitalized("istanbul"), "İstanbul");
}

TEST(IcuText, ToleratesBrokenAndVeryLongTexts) {
    const IcuText text("en_US");
    const std::string broken = "a\xff\xc3";
    EXPECT_TRUE(text.compare(broken, broken) == 0);
    EXPECT_TRUE(text.compare("a", broken) != 0);
    EXPECT_TRUE(text.contains(broken, "A"));
    EXPECT_FALSE(text.contains("a", "\xff"));
    EXPECT_EQ(text.capitalized(broken), "A\xef\xbf\xbd\xef\xbf\xbd");
    const std::string longText(10'000, 'x');
    EXPECT_TRUE(text.contains(longText + "Needle", "needle"));
    EXPECT_TRUE(text.compare(longText, longText + "a") < 0);
}

} // namespace
} // namespace calmora
