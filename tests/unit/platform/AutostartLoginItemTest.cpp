#include "platform/linux/xdg/AutostartLoginItem.h"

#include "platform/linux/xdg/DesktopEntry.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace calmora {
namespace {

namespace fs = std::filesystem;

struct AutostartLoginItemTest : testing::Test {
    AutostartLoginItemTest() {
        directories.configHome = folder / "home";
        directories.configDirs = {folder / "site", folder / "system"};
    }

    [[nodiscard]] fs::path file(const char* where) const {
        return folder / where / "autostart" / "org.example.Tool.desktop";
    }

    void write(const std::string& where, const std::string& text) const {
        if (!text.empty()) {
            temporary.write(where + "/autostart/org.example.Tool.desktop", text);
        }
    }

    [[nodiscard]] AutostartLoginItem item(const fs::path& program = "/opt/tool/bin/tool") const {
        return {directories, "org.example.Tool", program};
    }

    const TempFolder temporary;
    const fs::path& folder = temporary.path();
    BaseDirectories directories;
};

TEST_F(AutostartLoginItemTest, ReadsTheUsersFileBeforeTheSystems) {
    const std::string entry = "[Desktop Entry]\nType=Application\nName=Tool\nExec=tool\n";
    const std::string hidden = entry + "Hidden=true\n";
    const std::string off = entry + "X-GNOME-Autostart-enabled=false\n";

    struct Case {
        const char* name;
        std::string user;
        std::string system;
        bool isEnabled;
    };

    for (const Case& c : {
             Case{"none", "", "", false},
             Case{"user's", entry, "", true},
             Case{"user's, hidden", hidden, "", false},
             Case{"user's, switched off", off, "", false},
             Case{"hidden in another group", entry + "[Other]\nHidden=true\n", "", true},
             Case{"system's", "", entry, true},
             Case{"system's, hidden", "", hidden, false},
             Case{"system's, hidden by the user", hidden, entry, false},
             Case{"system's off, user's on", entry, off, true},
         }) {
        fs::remove_all(folder / "home");
        fs::remove_all(folder / "system");
        write("home", c.user);
        write("system", c.system);
        EXPECT_EQ(item().isEnabled(), c.isEnabled) << c.name;
        for (const bool wanted : {true, true, false, false, true}) {
            EXPECT_TRUE(item().setEnabled(wanted)) << c.name;
            EXPECT_EQ(item().isEnabled(), wanted) << c.name;
            EXPECT_EQ(fs::exists(file("home")), wanted || !c.system.empty()) << c.name;
        }
    }
}

TEST_F(AutostartLoginItemTest, StartsTheRunningProgramWhateverItsPath) {
    const fs::path strange = "/opt/a \"b\" $c `d` \\e 100% %f\n;#'/tool";
    for (const fs::path& program : {fs::path("/usr/bin/tool"), strange}) {
        ASSERT_TRUE(item(program).setEnabled(true));
        const std::string text = TempFolder::read(file("home"));
        const auto entry = parseDesktopEntry(text, {});
        ASSERT_TRUE(entry) << text;
        EXPECT_EQ(execWords(entry->exec), std::vector{program.string()}) << text;
        EXPECT_EQ(entry->icon, "org.example.Tool");
        EXPECT_FALSE(entry->hidden);
    }
}

TEST_F(AutostartLoginItemTest, TellsWhenItCannotWrite) {
    temporary.write("home/autostart", "a file in the folder's place");
    EXPECT_FALSE(item().setEnabled(true));
    EXPECT_FALSE(item().isEnabled());
    EXPECT_TRUE(item().setEnabled(false)) << "it is off";
    write("system", "[Desktop Entry]\nName=Tool\n");
    EXPECT_FALSE(item().setEnabled(false));
    EXPECT_TRUE(item().isEnabled());
}

} // namespace
} // namespace calmora
