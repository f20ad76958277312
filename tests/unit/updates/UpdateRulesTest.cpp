#include "updates/FeedAddress.h"
#include "updates/Release.h"
#include "updates/Version.h"

#include <gtest/gtest.h>

#include <utility>

namespace calmora {
namespace {

TEST(Version, SortsAsAppStreamDoes) {
    // As "appstreamcli vercmp" answers.
    const char* ascending[] = {"0~",     "0",      "0.9~~",  "0.9~",  "0.9",
                               "0.9-1~", "0.9-1",  "0.9-1a", "0.9-2", "0.9a",
                               "0.9a1",  "0.9b",   "0.9+",   "0.9.0", "0.9.0.1",
                               "0.9.2",  "0.9.10", "0.9.B",  "0.9.b", "0.9^1",
                               "0.9_1",  "0.10",   "1",      "1a",    "1.0~rc1",
                               "1.0",    "1.0.0",  "9.9",    "10",    "18446744073709551616",
                               "v1",     "1:0.1",  "2:0",    "10:0"};
    for (std::size_t i = 0; i < std::size(ascending); ++i) {
        EXPECT_TRUE(isVersion(ascending[i])) << ascending[i];
        for (std::size_t j = 0; j < std::size(ascending); ++j) {
            EXPECT_TRUE(compareVersions(ascending[i], ascending[j]) == (i <=> j))
                << ascending[i] << " and " << ascending[j];
        }
    }
    for (const auto& [a, b] : {std::pair{"1.0", "1.00"},
                               {"1.0", "1.0-0"},
                               {"0:7", "7"},
                               {"01.002", "1.2"},
                               {"1a", "1a0"}}) {
        EXPECT_TRUE(compareVersions(a, b) == 0 && compareVersions(b, a) == 0) << a << " and " << b;
    }
}

TEST(Version, IsRefusedWhenItIsNone) {
    for (const char* text :
         {"", "-", "abc", "1 0", "1.0\n", "1/2", "<1>", "1.0é", ":1", "a:1", "1:", "-1", "$(1)",
          "12345678901234567890123456789012345678901234567890123456789012345"}) {
        EXPECT_FALSE(isVersion(text)) << text;
    }
}

TEST(Releases, TheNewestIsOneForEverybody) {
    EXPECT_EQ(newestRelease({}), nullptr);
    const Release releases[] = {{"1.9", {}, {}, true},
                                {"1.10", {}, {}, true},
                                {"2.0", {}, {}, false},
                                {"1.2", {}, {}, true}};
    EXPECT_EQ(newestRelease(releases)->version, "1.10");
}

TEST(FeedAddress, IsReadFromSafePlacesAlone) {
    struct Case {
        FeedAddress address;
        bool isAllowed;
    };

    for (const auto& [address, isAllowed] : {Case{{"https", "example.org"}, true},
                                             {{"https", ""}, false},
                                             {{"file", ""}, true},
                                             {{"file", "server"}, false},
                                             {{"http", "localhost"}, true},
                                             {{"http", "127.0.0.1"}, true},
                                             {{"http", "127.255.3.4"}, true},
                                             {{"http", "::1"}, true},
                                             {{"http", "example.org"}, false},
                                             {{"http", "127.0.0.1.example.org"}, false},
                                             {{"http", "127.0.0.256"}, false},
                                             {{"http", "127.1"}, false},
                                             {{"http", "128.0.0.1"}, false},
                                             {{"http", "localhost.example.org"}, false},
                                             {{"ftp", "localhost"}, false},
                                             {{"", ""}, false}}) {
        EXPECT_EQ(mayFetch(address), isAllowed) << address.scheme << " " << address.host;
    }
    const FeedAddress from{"https", "example.org"};
    EXPECT_TRUE(mayFollow(from, from));
    EXPECT_FALSE(mayFollow(from, {"https", "www.example.org"}));
    EXPECT_FALSE(mayFollow({"http", "::1"}, {"https", "::1"}));
    EXPECT_FALSE(mayFollow({"https", "localhost"}, {"http", "localhost"}));
}

TEST(WebPage, IsWhatABrowserMayBeHanded) {
    for (const char* page : {"https://example.org", "http://example.org:80/a?b=c#d"}) {
        EXPECT_TRUE(isWebPage(page)) << page;
    }
    for (const char* page :
         {"", "https://", "https:///etc", "https://:80", "https://a@b", "javascript:alert(1)",
          "file:///etc/passwd", "ftp://example.org", "example.org", "https://a b", "https://a\nb",
          "https://a\"b", "--help", "https://exämple.org"}) {
        EXPECT_FALSE(isWebPage(page)) << page;
    }
    EXPECT_FALSE(isWebPage("https://example.org/" + std::string(4096, 'a')));
}

} // namespace
} // namespace calmora
