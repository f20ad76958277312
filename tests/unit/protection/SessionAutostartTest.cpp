#include "platform/linux/xdg/SessionAutostart.h"

#include "platform/linux/protection/ProtectionRules.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace calmora {
namespace {

/// One line of autostart-entries.tsv.
struct Row {
    std::string verdict, folder, id, exec, keys, runs;

    [[nodiscard]] std::string text() const {
        std::string more = keys == "-" ? "" : keys;
        std::ranges::replace(more, '|', '\n');
        return "[Desktop Entry]\nType=Application\nName=" + id + "\nExec=" + exec + "\n" + more;
    }

    [[nodiscard]] bool isSessionOn(const std::string& desktop) const {
        return verdict == "session" || (verdict == "application outside KDE" && desktop == "kde");
    }
};

std::vector<Row> recordedRows() {
    std::ifstream file(AUTOSTART_ENTRIES);
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        std::istringstream cells(line);
        Row row;
        for (std::string* cell :
             {&row.verdict, &row.folder, &row.id, &row.exec, &row.keys, &row.runs}) {
            std::getline(cells, *cell, '\t');
        }
        if (!line.starts_with('#')) {
            rows.push_back(row);
        }
    }
    return rows;
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

TEST(SessionAutostart, JudgesTheEntriesOfSixDesktops) {
    const TempFolder folder;
    const std::vector<Row> rows = recordedRows();
    ASSERT_EQ(std::ranges::count(rows, "autostart", &Row::folder), 91);
    for (const Row& row : rows) {
        if (row.verdict == "name") {
            EXPECT_TRUE(isSessionProgram(row.runs.substr(row.runs.rfind('/') + 1))) << row.id;
        }
        folder.write(row.folder + "/" + row.id + ".desktop", row.text());
    }
    for (const char* desktop : {"xfce", "kde", "gnome", "lxqt", "mate", "x-cinnamon"}) {
        const InstalledApplications installed = installedIn(folder, desktop);
        for (const Row& row : rows) {
            EXPECT_EQ(isSession(installed, row.runs == "-" ? row.exec : row.runs),
                      row.isSessionOn(desktop))
                << row.id << " on " << desktop;
        }
    }
}

TEST(SessionAutostart, GoesByTheSystemsEntryAndItsCommandLine) {
    const TempFolder folder;
    const auto write = [&](const std::string& where, const std::string& id, const std::string& exec,
                           const std::string& more) {
        folder.write(where + "/" + id + ".desktop", Row{"", "", id, exec, more, ""}.text());
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
    };
    for (const auto& [command, expected] : cases) {
        EXPECT_EQ(isSession(installed, command), expected) << command;
    }
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
