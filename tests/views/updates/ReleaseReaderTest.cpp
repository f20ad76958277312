// SPDX-License-Identifier: MIT
#include "updates/ReleaseReader.h"

#include "updates/Release.h"

namespace calmora {
namespace {

using namespace std::string_literals;

const std::string fullFeed = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- <release version="99"/> -->
<component type="desktop-application">
  <id>app.calmora.Calmora</id>
  <description><p>Not news</p></description>
  <releases>
    <release version="1.2" date="2026-11-22">
      <url type="contact">https://example.org/contact</url>
      <url type="details"> https://example.org/1.2?a=b&amp;c </url>
      <description>
        <p>Quicker   <em>and</em>
           smaller &lt;b&gt; &amp; more.</p>
        <p xml:lang="de">Schneller.</p>
        <ul><li>One</li><li xml:lang="de">Eins</li><li><![CDATA[<i>Two</i>]]></li>
            <li xml:lang="de">Zwei</li></ul>
        <p>Last</p><p xml:lang="de">Zuletzt</p><p xml:lang="fr">Fin</p>
      </description>
    </release>
    <release type="development" version="2.0~rc1"><url>javascript:alert(1)</url></release>
  </releases>
  <releases/>
</component>)";

/// "version notes page", one line a release, or the number of the error.
std::string told(const ReleaseList& list) {
    if (const auto* error = std::get_if<UpdateError>(&list)) {
        return "error " + std::to_string(static_cast<int>(*error));
    }
    std::string result;
    for (const Release& release : std::get<std::vector<Release>>(list)) {
        result += release.version + (release.isStable ? "|" : "?|") + release.notes + "|" +
                  release.page + "\n";
    }
    return result;
}

const std::string unreadable = told(UpdateError::unreadable);

TEST(ReleaseReader, ReadsAppStreamFiles) {
    const std::string rest = "|https://example.org/1.2?a=b&c\n2.0~rc1?||\n";
    const std::string english =
        "1.2|Quicker and smaller <b> & more.\n\n• One\n• <i>Two</i>\n\nLast" + rest;
    EXPECT_EQ(told(readReleases(fullFeed)), english);
    EXPECT_EQ(told(readReleases(fullFeed, {"de_DE", "de"})),
              "1.2|Schneller.\n\n• Eins\n• Zwei\n\nZuletzt" + rest);
    EXPECT_EQ(told(readReleases(fullFeed, {"fr"})), english) << "a part is not French";
    EXPECT_EQ(told(readReleases("<releases><release version='1'><description><p>a\u202Eb&#x9;c</p>"
                                "</description></release></releases>")),
              "1|a b c|\n");
}

TEST(ReleaseReader, RefusesAnythingButAList) {
    const std::string inside = "<releases><release version='1'/>";
    for (const std::string& xml :
         {""s, "<html></html>"s, inside, inside + "</releases><more/>",
          "<component><x><releases/></x></component>"s, "<releases>\xFF</releases>"s,
          "<?xml version='1.0' encoding='UTF-16'?><\0r\0/\0>\0"s,
          "<!DOCTYPE r [<!ENTITY a 'b'><!ENTITY c '&a;&a;'>]>" + inside + "&c;</releases>",
          "<!DOCTYPE r SYSTEM 'file:///etc/passwd'>" + inside + "</releases>",
          inside + "<release version='2'>&unknown;</release></releases>"}) {
        EXPECT_EQ(told(readReleases(xml)), unreadable) << xml;
    }
    std::string deep = "<releases>";
    for (int depth = 0; depth < 200'000; ++depth) {
        deep += "<a>";
    }
    EXPECT_EQ(told(readReleases(deep)), unreadable);
    for (const char* version : {"", "version='new'"}) {
        EXPECT_EQ(told(readReleases(inside + "<release " + version + "/></releases>")),
                  told(UpdateError::version))
            << version;
    }
    EXPECT_EQ(told(readReleases(inside + std::string(1024 * 1024, ' ') + "</releases>")),
              told(UpdateError::tooLarge));
}

} // namespace
} // namespace calmora
