// SPDX-License-Identifier: MIT
#include "platform/wayland/KwinReport.h"

namespace calmora {
namespace {

TEST(KwinReport, GivesTheWindowsOfARecordedOne) {
    // Recorded from KWin 5.27, with shorter ids; the last X11 window is of 6.3, which tells no id.
    constexpr auto recorded = R"({"run":3,"hasAsked":false,"active":"{3c7c}",
      "endsSlowClients":true,"windows":[
      {"id":"{3c7c}","parent":"","process":5777,"isX11":true,"x11Id":4194307,
       "className":"xterm","desktopFile":"","type":"normal","isModal":false,
       "skipsTaskbar":false,"canBeAsked":false},
      {"id":"{7f98}","parent":"","process":5884,"isX11":false,"className":"galculator",
       "desktopFile":"galculator","type":"normal","isModal":false,"skipsTaskbar":false,
       "canBeAsked":true},
      {"id":"{6b58}","parent":"{7f98}","process":5884,"isX11":false,"className":"galculator",
       "desktopFile":"galculator","type":"normal","isModal":true,"skipsTaskbar":false,
       "canBeAsked":true},
      {"id":"{737b}","parent":"","process":7305,"isX11":false,"className":"waybar",
       "desktopFile":"","type":"other","isModal":false,"skipsTaskbar":true,"canBeAsked":false},
      {"id":"{acd2}","parent":"","process":6277,"isX11":true,"className":"Galculator",
       "desktopFile":"","type":"normal","isModal":false,"skipsTaskbar":false,
       "canBeAsked":false}]})";
    const auto report = parseKwinReport(recorded);
    ASSERT_TRUE(report);
    EXPECT_EQ(report->run, 3U);
    EXPECT_FALSE(report->hasAsked);
    EXPECT_EQ(report->active, "{3c7c}");

    const KwinWindow expected[] = {
        {"{3c7c}",
         "",
         0,
         {.x11Id = 4194307,
          .applicationId = "xterm",
          .className = "xterm",
          .type = WindowType::normal}},
        {"{7f98}",
         "",
         5884,
         {.applicationId = "galculator",
          .className = "galculator",
          .kdeDesktopFile = "galculator",
          .type = WindowType::normal,
          .canBeAsked = true,
          .mustAnswerSoon = true}},
        {"{6b58}",
         "{7f98}",
         5884,
         {.applicationId = "galculator",
          .className = "galculator",
          .kdeDesktopFile = "galculator",
          .type = WindowType::dialog,
          .isModal = true,
          .canBeAsked = true,
          .mustAnswerSoon = true}},
        {"{737b}",
         "",
         7305,
         {.applicationId = "waybar",
          .className = "waybar",
          .type = WindowType::other,
          .skipsTaskbar = true}},
        {"{acd2}",
         "",
         0,
         {.mayBeX11 = true,
          .applicationId = "Galculator",
          .className = "Galculator",
          .type = WindowType::normal}},
    };
    ASSERT_EQ(report->windows.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(report->windows[i], expected[i]) << expected[i].id;
    }
}

TEST(KwinReport, MakesNothingOfWhatItCannotRead) {
    for (const char* text : {"", "{", "[]", R"({"run":3})", R"({"windows":{}})"}) {
        EXPECT_EQ(parseKwinReport(text), std::nullopt) << text;
    }
    // A window of X11 is never asked, and out of range is unknown.
    const auto odd = parseKwinReport(R"({"run":-1,"windows":[3,{"id":7},{"parent":"x"},
        {"id":"a","process":4294967297,"canBeAsked":"yes","type":"dock"},
        {"id":"b","process":5,"isX11":true,"x11Id":-2,"canBeAsked":true,"type":"new"}]})");
    ASSERT_TRUE(odd && odd->windows.size() == 2);
    EXPECT_EQ(odd->run, 0U);
    EXPECT_EQ(odd->windows[0], (KwinWindow{"a", "", 0, {.type = WindowType::dock}}));
    EXPECT_EQ(odd->windows[1],
              (KwinWindow{"b", "", 0, {.mayBeX11 = true, .type = WindowType::other}}));
}

} // namespace
} // namespace calmora
