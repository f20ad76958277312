#include "platform/qt/QtLocalizedStrings.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

TEST(LocalizedStrings, SpeakTheLanguageOfTheLocaleOrElseEnglish) {
    const QtLocalizedStrings english{QLocale(QLocale::Icelandic)};
    EXPECT_EQ(english.text("apps_running_count %lld", 0), "%lld apps running");
    EXPECT_EQ(english.text("apps_running_count %lld", INT64_MAX), "%lld apps running");
    EXPECT_EQ(english.text("100 %n"), "100 %n");
    const std::pair<const char*, std::string> rows[] = {
        {"C", "%lld app running"},
        {"de_AT", "%lld Programm geöffnet"},
        {"fr_CA", "%lld application ouverte"},
        {"es_MX", "%lld aplicación abierta"},
        {"ja_JP", "%lld個のアプリを実行中"},
        {"zh_SG", "%lld 个应用正在运行"},
        {"zh_TW", "%lld app running"},
    };
    for (const auto& [locale, one] : rows) {
        const QtLocalizedStrings strings{QLocale(locale)};
        EXPECT_EQ(strings.text("apps_running_count %lld", 1), one) << locale;
    }
}

} // namespace
} // namespace calmora
