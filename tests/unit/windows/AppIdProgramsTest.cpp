// SPDX-License-Identifier: MIT
#include "platform/wayland/AppIdPrograms.h"
#include "platform/linux/xdg/DesktopEntryIndex.h"
#include "platform/wayland/SocketClients.h"

#include <sstream>

namespace calmora {
namespace {

DesktopEntry entry(const std::string& id, const std::string& exec, const std::string& wmClass) {
    auto parsed = parseDesktopEntry("[Desktop Entry]\nType=Application\nName=x\nExec=" + exec +
                                        "\nStartupWMClass=" + wmClass + '\n',
                                    {});
    parsed->id = id;
    return *parsed;
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text + separator);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

// Recorded from sway 1.7 on Debian 12, where sway tells the true process of each window.
TEST(AppIdPrograms, FindTheClientsOfRecordedWindows) {
    // Between bars: application id; the name, executable (empty where it may not be read) and
    // command line of its process; id, Exec and StartupWMClass of an entry that starts it. Then its
    // row and others that cannot be told apart; none where nothing fits.
    const std::pair<const char*, std::vector<ProcessId>> rows[] = {
        {"mousepad|mousepad|/usr/bin/mousepad|mousepad|org.xfce.mousepad|mousepad %U|", {1}},
        {"org.pwmt.zathura|zathura||zathura|org.pwmt.zathura|zathura %U|", {2}},
        {"qpdfview.local.qpdfview|qpdfview|/usr/bin/qpdfview|qpdfview|qpdfview|qpdfview --unique "
         "%F|",
         {3}},
        {"org.gnome.Meld|meld|/usr/bin/python3.11|/usr/bin/python3 /usr/bin/meld|org.gnome.Meld|"
         "meld %F|",
         {4}},
        {"org.kde.kcolorschemeeditor|kcolorschemeedi|/usr/bin/"
         "kcolorschemeeditor|kcolorschemeeditor|"
         "org.kde.kcolorschemeeditor|kcolorschemeeditor|",
         {5}},
        {"org.kde.keditfiletype|keditfiletype|/usr/bin/keditfiletype|keditfiletype text/plain|"
         "org.kde.keditfiletype|keditfiletype5|",
         {6}},
        // Which of the Python programs it is, the id does not tell.
        {"python3|software-proper|/usr/bin/python3.11|/usr/bin/python3 "
         "/usr/bin/software-properties-qt|software-properties-qt|software-properties-qt|",
         {}},
        {"kcm_mouse|kcmshell5|/usr/bin/kcmshell5|kcmshell5 kcm_mouse|kcm_mouse|systemsettings "
         "kcm_mouse|",
         {}},
        {"foot|foot|/usr/bin/foot|foot sleep 99|foot|foot|", {9, 10}},
        {"scratch|foot|/usr/bin/foot|foot -a scratch|foot-server|foot --server|", {}},
        // Not recorded: the two ways in which an entry stands for another program's name.
        {"Navigator|firefox|/opt/ff/firefox|firefox|fox|/opt/ff/firefox|navigator", {11}},
        {"Ghost|start.bin|/opt/g/start.bin|start.bin|org.example.Ghost|/opt/g/start.bin|", {12}},
    };

    std::vector<SocketClient> clients;
    std::vector<DesktopEntry> entries;
    std::vector<std::string> ids;
    for (const auto& [recorded, expected] : rows) {
        const auto fields = split(recorded, '|');
        const auto executable = fields[2].empty() ? std::nullopt : std::optional(fields[2]);
        ids.push_back(fields[0]);
        clients.push_back({static_cast<ProcessId>(ids.size()),
                           programNames(fields[1], executable, split(fields[3], ' '))});
        entries.push_back(entry(fields[4], fields[5], fields[6]));
    }
    const DesktopEntryIndex index(std::move(entries));
    for (std::size_t i = 0; i < ids.size(); ++i) {
        EXPECT_EQ(clientsCalled(programsOfAppId(ids[i], index), clients), rows[i].second) << ids[i];
    }
}

} // namespace
} // namespace calmora
