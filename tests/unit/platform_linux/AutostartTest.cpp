// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/AutostartLoginItem.h"

#include "platform/linux/xdg/DesktopEntry.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "platform/linux/xdg/SessionAutostart.h"
#include "support/TempFolder.h"

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

    const std::tuple<std::string, std::string, bool> cases[] = {
        {"", "", false},        {entry, "", true},  {hidden, "", false},
        {off, "", false},       {"", entry, true},  {"", hidden, false},
        {hidden, entry, false}, {entry, off, true}, {entry + "[Other]\nHidden=true\n", "", true}};
    for (const auto& [user, system, isEnabled] : cases) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, user + " over " + system);
        fs::remove_all(folder / "home");
        fs::remove_all(folder / "system");
        write("home", user);
        write("system", system);
        EXPECT_EQ(item().isEnabled(), isEnabled);
        for (const bool wanted : {true, true, false, false, true}) {
            EXPECT_TRUE(item().setEnabled(wanted));
            EXPECT_EQ(item().isEnabled(), wanted);
            EXPECT_EQ(fs::exists(file("home")), wanted || !system.empty());
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
        EXPECT_EQ(entry->tryExec, program.string()) << text;
        EXPECT_EQ(entry->icon, "org.example.Tool");
        EXPECT_FALSE(entry->hidden);
    }
}

/// The installed applications of a system in `folder`.
InstalledApplications installedIn(const TempFolder& folder, const std::string& desktop) {
    BaseDirectories directories;
    directories.dataDirs = {folder.path()};
    directories.configHome = folder.path() / "user";
    directories.configDirs = {folder.path()};
    directories.currentDesktops = {desktop};
    InstalledApplications installed(directories, {});
    installed.refresh();
    return installed;
}

bool isSession(const InstalledApplications& installed, const std::string& command) {
    const std::vector<std::string> words = execWords(command);
    const std::string program = words.front();
    return installed.sessionAutostart().starts(
        words, program.starts_with('/') ? program : "/usr/bin/" + program);
}

TEST(SessionAutostart, GoesByTheSystemsEntryAndItsCommandLine) {
    const TempFolder folder;

    // By file, the value of Exec and what follows it. "clips" is on one desktop part of the
    // session, on others an application.
    const std::pair<std::string, std::string> entries[] = {
        {"autostart/applet", "applet --quiet"},
        {"autostart/switched-off", "switched-off"},
        {"user/autostart/switched-off", "switched-off\nHidden=true"},
        {"autostart/changed", "changed"},
        {"user/autostart/changed", "changed --more"},
        {"autostart/deep", "/usr/libexec/deep/agent"},
        {"autostart/script", "/usr/bin/script.py --watch"},
        {"autostart/service", "service --gapplication-service"},
        {"applications/service.app", "service --gapplication-service"},
        {"autostart/twin", "env A=b twin --start"},
        {"applications/twin.app", "twin --start %U"},
        {"autostart/icon", "icon\nX-LXQt-Need-Tray=true"},
        {"applications/icon.app", "icon"},
        {"autostart/pair", "pair --hide"},
        {"applications/pair.app", "pair"},
        {"autostart/users", "users --session"},
        {"user/autostart/other", "users"},
        {"user/autostart/mine", "mine"},
        {"autostart/shell", "sh -c 'X=1 method true'"},
        {"autostart/unseen", "unseen\nOnlyShowIn=XFCE;"},
        {"applications/unseen", "unseen\nNoDisplay=true"},
        {"autostart/clips", "clips\nOnlyShowIn=KDE;"},
        {"applications/clips.app", "clips\nNotShowIn=KDE;"}};
    for (const auto& [file, exec] : entries) {
        folder.write(file + ".desktop",
                     "[Desktop Entry]\nType=Application\nName=x\nExec=" + exec + "\n");
    }
    const InstalledApplications installed = installedIn(folder, "xfce");
    for (const char* command :
         {"applet", "/usr/bin/applet --quiet", "switched-off", "changed", "changed --more",
          "/usr/libexec/deep/agent", "/usr/bin/python3 -s /usr/bin/script.py --watch",
          "service --gapplication-service", "icon", "pair --hide", "users --session",
          "sh -c 'X=1 method true'", "unseen"}) {
        EXPECT_TRUE(isSession(installed, command)) << command;
    }
    for (const char* command :
         {"applets", "mine", "/opt/other/agent", "/usr/bin/python3 /home/me/script.py --watch",
          "service", "twin --start", "pair --hide file", "pair", "users", "sh -c method",
          "clips"}) {
        EXPECT_FALSE(isSession(installed, command)) << command;
    }
    EXPECT_TRUE(isSession(installedIn(folder, "kde"), "clips"));
    const std::vector<std::string> renamed{"something else"};
    EXPECT_TRUE(installed.sessionAutostart().starts(renamed, "/usr/bin/applet"));
    EXPECT_FALSE(installed.sessionAutostart().starts(renamed, "/usr/bin/pair"));
    EXPECT_FALSE(installed.sessionAutostart().starts({}, std::nullopt));
    const auto isUsers = [&](const char* id) {
        const DesktopEntry* entry = installed.index().withId(id);
        return entry != nullptr && entry->isAutostart;
    };
    EXPECT_TRUE(isUsers("mine"));
    EXPECT_FALSE(isUsers("changed") || isUsers("applet") || isUsers("switched-off"));
}

} // namespace
} // namespace calmora
