#include "platform/qt/QtLocalizedStrings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace calmora {
namespace {

/// The string literals of the sources that name a text by a symbol: lower-case words joined by
/// "_", then the placeholders.
std::set<std::string> symbolicKeys() {
    std::set<std::string> keys;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCE_FOLDER "/src")) {
        const std::string extension = entry.path().extension();
        if (extension != ".cpp" && extension != ".h") {
            continue;
        }
        std::ifstream file(entry.path());
        const std::string source(std::istreambuf_iterator<char>(file), {});
        for (std::size_t at = source.find(" %"); at != std::string::npos;
             at = source.find(" %", at + 1)) {
            const std::size_t start = source.rfind('"', at) + 1;
            const std::string word = source.substr(start, at - start);
            if (word.find('_') != std::string::npos &&
                word.find_first_not_of("abcdefghijklmnopqrstuvwxyz_") == std::string::npos) {
                keys.insert(source.substr(start, source.find('"', start) - start));
            }
        }
    }
    return keys;
}

TEST(LocalizedStrings, EverySymbolicKeyHasAnEnglishTextWithItsPlaceholders) {
    const QtLocalizedStrings strings(QLocale::c());
    std::set<std::string> keys = symbolicKeys();
    keys.insert({"apps_running_count %lld", "auto_quit_notification %@ %lld", "version_label %@"});
    for (const std::string& key : keys) {
        const std::string text = strings.text(key, 2);
        EXPECT_NE(text, key);
        EXPECT_EQ(text.find('_'), std::string::npos) << text;
        for (const std::string placeholder : {"%lld", "%@"}) {
            EXPECT_EQ(text.find(placeholder) == std::string::npos,
                      key.find(placeholder) == std::string::npos)
                << key << " -> " << text;
        }
    }
}

TEST(LocalizedStrings, ChoosesThePluralFormAndLeavesUnknownKeysAlone) {
    const QtLocalizedStrings strings(QLocale(QLocale::Icelandic));

    const struct {
        std::int64_t count;
        std::string text;
    } rows[] = {{0, "%lld apps running"},
                {1, "%lld app running"},
                {2, "%lld apps running"},
                {INT64_MAX, "%lld apps running"}};

    for (const auto& row : rows) {
        EXPECT_EQ(strings.text("apps_running_count %lld", row.count), row.text) << row.count;
    }
    EXPECT_EQ(fillPlaceholders(strings.text("version_label %@"), {"1.2.3"}), "Version 1.2.3");
    EXPECT_EQ(strings.text("Check for Updates…"), "Check for Updates…");
    EXPECT_EQ(strings.text("100 %n"), "100 %n");
}

} // namespace
} // namespace calmora
