// SPDX-License-Identifier: MIT
#include "fakes/FakeKeys.h"
#include "platform/desktop/shortcuts/DesktopShortcuts.h"
#include "platform/desktop/shortcuts/ShortcutSources.h"
#include "support/TempFolder.h"

#include <sys/stat.h>

namespace calmora {
namespace {

TEST(Accelerator, ReadsOpenboxFiles) {
    const std::vector<Accelerator> expected{{0x800, "F4"}, {0x100, "e"}, {0x1000, "g"}, {0, "F1"}};
    EXPECT_EQ(openboxAccelerators(R"(<?xml version="1.0"?><keyboard>
        <keybind key="A-F4"><action name="Close"/></keybind>
        <!-- <keybind key="A-F5"><action/></keybind> -->
        <keybind chroot="no" key='W-e
           C-g'><keybind key="C-c"><action key="x"/></keybind></keybind>
        <keybind key="H-x"/><keybind key="F1"/><keybinds key="F2"/><keybind></keybind>)"),
              expected);
    const std::string binding = "<keybind key='A-F4'/>";
    std::string endless = "<keybind key='A-F4'";
    for (int number = 0; number < 1000; ++number) {
        endless += " a" + std::to_string(number) + "=''";
    }
    for (const std::string& refused :
         {std::string("<"), std::string("<keybind key=\"A-F4"), std::string("<keybind key="),
          std::string("<!-- <keybind"), endless + "/>", "<!DOCTYPE a [<!ENTITY b ''>]>" + binding,
          binding + std::string(1024 * 1024, ' ')}) {
        EXPECT_TRUE(openboxAccelerators(refused).empty()) << refused.substr(0, 60);
    }
}

TEST(Accelerator, PassesByWhatIsNoFileOfOpenbox) {
    const TempFolder folder;
    const auto pipe = folder.path() / "pipe.xml";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const auto file = folder.write("rc.xml", "<keybind key='A-F4'/>");
    EXPECT_EQ(openboxShortcuts([] { return "Openbox"; }, {pipe, file})().size(), 1U);
}

TEST(DesktopShortcuts, FindKeysByNameAndByLayout) {
    FakeKeyboardLayout layout;
    layout.characters[6] = "y"; // where a US keyboard has z
    const std::pair<const char*, std::optional<std::int64_t>> rows[] = {
        {"k", 40},    {"K", 40},    {"y", 6}, {"comma", 43}, {"left", 123},     {"space", 49},
        {"F12", 111}, {"KP_5", {}}, {"", {}}, {"U0041", 0},  {"Above_Tab", 50},
    };
    const KeyNames names(layout);
    for (const auto& [name, expected] : rows) {
        EXPECT_EQ(names.keyCode(name), expected) << name;
    }
    DesktopShortcuts shortcuts(layout, {[] { return std::vector<Accelerator>{{0x800, "F4"}}; },
                                        [] { return std::vector<Accelerator>{{0, "Print"}}; }});
    EXPECT_EQ(shortcuts.copySymbolicHotKeys(),
              (std::vector<SymbolicHotKey>{{true, 118, 0x800}, {true, {}, 0}}));
}

} // namespace
} // namespace calmora
