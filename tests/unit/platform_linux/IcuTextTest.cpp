#include "platform/linux/IcuText.h"

#include <gtest/gtest.h>

#include <string>

namespace calmora {
namespace {

TEST(IcuText, OrdersAsAReaderOfTheLanguageWould) {
    const IcuText german("de_DE.UTF-8");
    EXPECT_TRUE(german.compare("Ärger", "Zebra") < 0);
    EXPECT_TRUE(german.compare("resume", "résumé") != 0);
    // Ä is a letter of its own behind Z in Swedish.
    EXPECT_TRUE(IcuText("sv_SE").compare("Ärger", "Zebra") > 0);
    EXPECT_EQ(IcuText("tr_TR").capitalized("istanbul PARK"), "İstanbul Park");
    EXPECT_TRUE(german.compare("XTerm", "xterm") == 0 && german.compare("Meld", "Meld 2") < 0);
    EXPECT_TRUE(german.contains("Ärger im Büro", "ÄRGER IM") && german.contains("", ""));
    EXPECT_FALSE(german.contains("Ärger", "ar") || german.contains("saf", "Safari"));
    for (const char* plain : {"C", "POSIX", "C.UTF-8", "no such locale", "xx_YY@zz.!"}) {
        EXPECT_TRUE(IcuText(plain).compare("b", "C") < 0) << plain;
    }
}

TEST(IcuText, ToleratesBrokenTexts) {
    const IcuText text("en_US");
    const std::string broken = "a\xff\xc3";
    EXPECT_TRUE(text.compare(broken, broken) == 0 && text.compare("a", broken) != 0);
    EXPECT_TRUE(text.contains(broken, "A"));
    EXPECT_FALSE(text.contains("a", "\xff"));
    EXPECT_EQ(text.capitalized(broken), "A\xef\xbf\xbd\xef\xbf\xbd");
}

} // namespace
} // namespace calmora
