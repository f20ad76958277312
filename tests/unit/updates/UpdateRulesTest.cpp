#include "updates/FeedAddress.h"
#include "updates/Release.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

TEST(UpdateRules, SortVersionsLikeAppStream) {
    // In the order of "appstreamcli vercmp".
    const char* ascending[] = {"0~",     "0",     "0.9~~", "0.9~",  "0.9",   "0.9-1",
                               "0.9-1a", "0.9a",  "0.9a1", "0.9+",  "0.9.0", "0.9.2",
                               "0.9.10", "0.9.B", "0.9.b", "0.9^1", "0.9_1", "0.10",
                               "1",      "1a",    "10",    "v1",    "1:0.1"};
    for (std::size_t i = 0; i < std::size(ascending); ++i) {
        EXPECT_TRUE(isVersion(ascending[i])) << ascending[i];
        for (std::size_t j = 0; j < std::size(ascending); ++j) {
            EXPECT_TRUE(compareVersions(ascending[i], ascending[j]) == (i <=> j))
                << ascending[i] << " and " << ascending[j];
        }
    }
    EXPECT_TRUE(compareVersions("18446744073709551616", "9") > 0);
    for (const auto& [a, b] :
         {std::pair{"1.0", "1.00"}, {"1.0", "1.0-0"}, {"0:7", "7"}, {"1a", "1a0"}}) {
        EXPECT_TRUE(compareVersions(a, b) == 0 && compareVersions(b, a) == 0) << a << " and " << b;
    }
    for (const char* text : {"", "abc", "1.0\n", "1/2", "<1>", "1.0é", ":1", "a:1", "1:", "-1"}) {
        EXPECT_FALSE(isVersion(text)) << text;
    }
    EXPECT_FALSE(isVersion(std::string(65, '1')));
    const Release releases[] = {{"1.9", {}, {}}, {"1.10", {}, {}}, {"2.0", {}, {}, false}};
    EXPECT_EQ(newestRelease(releases)->version, "1.10") << "stable releases only";
}

TEST(UpdateRules, ReadListsOnlyFromSafeAddresses) {
    const FeedAddress safe[] = {{"https", "a.org"},    {"file", ""},    {"http", "localhost"},
                                {"http", "127.0.0.1"}, {"http", "::1"}, {"http", "127.255.3.4"}};
    for (const auto& [scheme, host] : safe) {
        EXPECT_TRUE(mayFetch({scheme, host}) && mayFollow({scheme, host}, {scheme, host})) << host;
        EXPECT_FALSE(mayFollow({scheme, host}, {scheme, "b.org"})) << host;
    }
    EXPECT_FALSE(mayFollow({"https", "localhost"}, {"http", "localhost"})) << "no step down";
    const FeedAddress unsafe[] = {{"https", ""},         {"file", "server"},
                                  {"http", "a.org"},     {"http", "127.0.0.256"},
                                  {"http", "127.1"},     {"http", "127.0.0.1.a.org"},
                                  {"http", "128.0.0.1"}, {"ftp", "localhost"}};
    for (const FeedAddress& address : unsafe) {
        EXPECT_FALSE(mayFetch(address)) << address.scheme << " " << address.host;
    }
}

TEST(UpdateRules, OpenOnlyWebPages) {
    EXPECT_TRUE(isWebPage("https://a.org") && isWebPage("http://a.org:80/a?b=c#d"));
    for (const char* page :
         {"https://", "https:///etc", "https://:80", "https://a@b", "javascript:alert(1)",
          "file:///etc/passwd", "a.org", "https://a b", "https://a\"b", "https://ä"}) {
        EXPECT_FALSE(isWebPage(page)) << page;
    }
    EXPECT_FALSE(isWebPage("https://a.org/" + std::string(4096, 'a')));
}

} // namespace
} // namespace calmora
