#include "platform/linux/xdg/AutostartLoginItem.h"

#include "platform/linux/xdg/DesktopEntry.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "platform/linux/xdg/SessionAutostart.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

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
    const auto write = [&](const std::string& where, const std::string& id, const std::string& exec,
                           const std::string& more) {
        folder.write(where + "/" + id + ".desktop",
                     "[Desktop Entry]\nType=Application\nName=x\nExec=" + exec + "\n" + more);
    };
    write("autostart", "applet", "applet --quiet", "");
    write("autostart", "switched-off", "switched-off", "");
    write("autostart", "changed", "changed", "");
    write("autostart", "deep", "/usr/libexec/deep/agent", "");
    write("autostart", "script", "/usr/bin/script.py --watch", "");
    write("autostart", "service", "service --gapplication-service", "");
    write("autostart", "twin", "env A=b twin --start", "");
    write("autostart", "icon", "icon", "X-LXQt-Need-Tray=true");
    write("autostart", "pair", "pair --hide", "");
    write("autostart", "users", "users --session", "");
    write("autostart", "shell", "sh -c 'X=1 method true'", "");
    write("autostart", "unseen", "unseen", "OnlyShowIn=XFCE;");
    write("applications", "unseen", "unseen", "NoDisplay=true");
    // On one desktop part of the session, on others an application.
    write("autostart", "clips", "clips", "OnlyShowIn=KDE;");
    write("applications", "clips.app", "clips", "NotShowIn=KDE;");
    write("user/autostart", "switched-off", "switched-off", "Hidden=true");
    write("user/autostart", "changed", "changed --more", "");
    write("user/autostart", "mine", "mine", "");
    write("user/autostart", "other", "users", "");
    for (const char* command :
         {"service --gapplication-service", "twin --start %U", "icon", "pair"}) {
        write("applications", execWords(command).front() + ".app", command, "");
    }
    const InstalledApplications installed = installedIn(folder, "xfce");
    const std::pair<const char*, bool> cases[] = {
        {"applet", true},
        {"/usr/bin/applet --quiet", true},
        {"applets", false},
        {"switched-off", true},
        {"changed", true},
        {"changed --more", true},
        {"mine", false},
        {"/usr/libexec/deep/agent", true},
        {"/opt/other/agent", false},
        {"/usr/bin/python3 -s /usr/bin/script.py --watch", true},
        {"/usr/bin/python3 /home/me/script.py --watch", false},
        {"service --gapplication-service", true},
        {"service", false},
        {"twin --start", false},
        {"icon", true},
        {"pair --hide", true},
        {"pair --hide file", false},
        {"pair", false},
        {"users --session", true},
        {"users", false},
        {"sh -c 'X=1 method true'", true},
        {"sh -c method", false},
        {"unseen", true},
        {"clips", false},
    };
    for (const auto& [command, expected] : cases) {
        EXPECT_EQ(isSession(installed, command), expected) << command;
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
