#include "platform/wayland/AppIdPrograms.h"
#include "platform/linux/xdg/DesktopEntryIndex.h"
#include "platform/wayland/SocketClients.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

DesktopEntry entry(const std::string& id, const std::string& exec, const std::string& wmClass) {
    auto parsed = parseDesktopEntry("[Desktop Entry]\nType=Application\nName=x\nExec=" + exec +
                                        "\nStartupWMClass=" + wmClass + '\n',
                                    {});
    parsed->id = id;
    return *parsed;
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts{""};
    for (const char letter : text) {
        if (letter == separator) {
            parts.emplace_back();
        } else {
            parts.back() += letter;
        }
    }
    return parts;
}

// Recorded from sway 1.7 on Debian 12, where sway tells the true process of each window.
TEST(AppIdPrograms, FindTheClientsOfRecordedWindows) {
    const struct {
        /// Tabs between: application id; the name, executable (empty where it may not be read) and
        /// command line of its process; id, Exec and StartupWMClass of an entry that starts it.
        const char* recorded;
        /// Its row and others that cannot be told apart; none where nothing fits.
        std::vector<ProcessId> expected;
    } rows[] = {
        {"mousepad\tmousepad\t/usr/bin/mousepad\tmousepad\torg.xfce.mousepad\tmousepad %U\t", {1}},
        {"galculator\tgalculator\t/usr/bin/galculator\tgalculator\tgalculator\tgalculator\t", {2}},
        {"org.pwmt.zathura\tzathura\t\tzathura\torg.pwmt.zathura\tzathura %U\t", {3}},
        {"qpdfview.local.qpdfview\tqpdfview\t/usr/bin/qpdfview\tqpdfview\tqpdfview\tqpdfview "
         "--unique %F\t",
         {4}},
        {"org.gnome.Meld\tmeld\t/usr/bin/python3.11\t/usr/bin/python3 "
         "/usr/bin/meld\torg.gnome.Meld\tmeld %F\t",
         {5}},
        {"org.kde.keditbookmarks\tkeditbookmarks\t/usr/bin/"
         "keditbookmarks\tkeditbookmarks\torg.kde.keditbookmarks\tkeditbookmarks\t",
         {6}},
        {"org.kde.kcolorschemeeditor\tkcolorschemeedi\t/usr/bin/"
         "kcolorschemeeditor\tkcolorschemeeditor\torg.kde.kcolorschemeeditor\tkcolorschemeeditor\t",
         {7}},
        {"org.kde.kdeconnect.app\tkdeconnect-app\t/usr/bin/"
         "kdeconnect-app\tkdeconnect-app\torg.kde.kdeconnect.app\tkdeconnect-app\t",
         {8}},
        {"org.kde.keditfiletype\tkeditfiletype\t/usr/bin/keditfiletype\tkeditfiletype "
         "text/plain\torg.kde.keditfiletype\tkeditfiletype5\t",
         {9}},
        {"org.kde.knetattach\tknetattach\t/usr/bin/"
         "knetattach\tknetattach\torg.kde.knetattach\tknetattach\t",
         {10}},
        // Which of the Python programs it is, the id does not tell.
        {"python3\tsoftware-proper\t/usr/bin/python3.11\t/usr/bin/python3 "
         "/usr/bin/software-properties-qt\tsoftware-properties-qt\tsoftware-properties-qt\t",
         {}},
        {"kcm_mouse\tkcmshell5\t/usr/bin/kcmshell5\tkcmshell5 kcm_mouse\tkcm_mouse\tsystemsettings "
         "kcm_mouse\t",
         {}},
        {"foot\tfoot\t/usr/bin/foot\tfoot sleep 99\tfoot\tfoot\t", {13, 14}},
        {"scratch\tfoot\t/usr/bin/foot\tfoot -a scratch\tfoot-server\tfoot --server\t", {}},
        // Not recorded: the two ways in which an entry stands for another program's name.
        {"Navigator\tfirefox\t/opt/ff/firefox\tfirefox\torg.example.fox\t/opt/ff/"
         "firefox\tnavigator",
         {15}},
        {"Ghost\tstart.bin\t/opt/ghost/start.bin\tstart.bin\torg.example.Ghost\t/opt/ghost/"
         "start.bin\t",
         {16}},
    };

    std::vector<SocketClient> clients;
    std::vector<DesktopEntry> entries;
    std::vector<std::string> ids;
    for (const auto& row : rows) {
        const auto fields = split(row.recorded, '\t');
        const auto executable = fields[2].empty() ? std::nullopt : std::optional(fields[2]);
        ids.push_back(fields[0]);
        clients.push_back({static_cast<ProcessId>(ids.size()),
                           programNames(fields[1], executable, split(fields[3], ' '))});
        entries.push_back(entry(fields[4], fields[5], fields[6]));
    }
    const DesktopEntryIndex index(std::move(entries));
    for (std::size_t i = 0; i < ids.size(); ++i) {
        EXPECT_EQ(clientsCalled(programsOfAppId(ids[i], index), clients), rows[i].expected)
            << ids[i];
    }
}

} // namespace
} // namespace calmora
