#include "platform/qt/QtLocalizedStrings.h"

#include <gtest/gtest.h>

#include <string>

namespace calmora {
namespace {

TEST(LocalizedStrings, ChoosesThePluralFormAndLeavesUnknownKeysAlone) {
    const QtLocalizedStrings strings(QLocale(QLocale::Icelandic));

    for (const std::int64_t count : {std::int64_t{0}, std::int64_t{2}, INT64_MAX}) {
        EXPECT_EQ(strings.text("apps_running_count %lld", count), "%lld apps running") << count;
    }
    EXPECT_EQ(fillPlaceholders(strings.text("version_label %@"), {"1.2.3"}), "Version 1.2.3");
    EXPECT_EQ(strings.text("Check for Updates…"), "Check for Updates…");
    EXPECT_EQ(strings.text("100 %n"), "100 %n");
}

TEST(LocalizedStrings, SpeaksTheLanguageOfTheLocaleOrElseEnglish) {
    const struct {
        const char* locale;
        std::string cancel;
        std::string one;
    } rows[] = {
        {"C", "Cancel", "%lld app running"},
        {"en_GB", "Cancel", "%lld app running"},
        {"de_AT", "Abbrechen", "%lld Programm geöffnet"},
        {"fr_CA", "Annuler", "%lld application ouverte"},
        {"es_MX", "Cancelar", "%lld aplicación abierta"},
        {"ja_JP", "キャンセル", "%lld個のアプリを実行中"},
        {"zh_CN", "取消", "%lld 个应用正在运行"},
        {"zh_SG", "取消", "%lld 个应用正在运行"},
        {"zh_TW", "Cancel", "%lld app running"},
        {"is_IS", "Cancel", "%lld app running"},
    };

    for (const auto& row : rows) {
        const QtLocalizedStrings strings{QLocale(row.locale)};
        EXPECT_EQ(strings.text("Cancel"), row.cancel) << row.locale;
        EXPECT_EQ(strings.text("apps_running_count %lld", 1), row.one) << row.locale;
    }
}

} // namespace
} // namespace calmora
