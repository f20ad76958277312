// SPDX-License-Identifier: MIT
#include "WorkspaceTest.h"

namespace calmora {
namespace {

struct Program {
    /// Desktop id; the window's class too.
    std::string id;
    /// Below the folder of the user's programs; both of a pair may be the same file.
    std::string file;
    /// What the list says.
    std::string identifier;
};

const Program browser{"surf", "surf/surf", "surf"};
const Program webApplication{"surf-mail", "surf/surf", "surf-mail"};
const Program release{"firefox", "firefox/firefox", "org.mozilla.firefox"};
const Program longTerm{"firefox-esr", "firefox-esr/firefox-esr", "org.mozilla.firefox"};

TEST(WrongVictimsTest, ForcingOneApplicationLeavesTheOther) {
    for (const auto& [victim, neighbour] : {std::pair(browser, webApplication),
                                            {webApplication, browser},
                                            {release, longTerm},
                                            {longTerm, release}}) {
        SCOPED_TRACE(victim.id);
        LinuxDesktop machine;
        const auto installed = [&](const Program& program) {
            const std::string file = machine.program("Apps/" + program.file);
            machine.install(program.id, "Name=" + program.id + "\nExec=" + file + " --instance " +
                                            program.id + "\nStartupWMClass=" + program.id);
            return std::vector{file, std::string("--instance"), program.id, std::string("--class"),
                               program.id};
        };
        const auto others = installed(neighbour);
        const auto victims = installed(victim);
        const pid_t other = machine.shown(machine.desktop.start(others));
        const pid_t first = machine.shown(machine.desktop.start(victims));
        const pid_t second = machine.shown(machine.desktop.start(victims));
        EXPECT_EQ(machine.listed(first)->bundleIdentifier, victim.identifier);
        EXPECT_EQ(machine.listed(other)->bundleIdentifier, neighbour.identifier);
        EXPECT_TRUE(machine.quitter.quitApp(first, true));
        EXPECT_FALSE(machine.isRunning(first));
        EXPECT_FALSE(machine.isRunning(second)) << "the same application";
        EXPECT_TRUE(machine.isRunning(other));
    }
}

TEST(WrongVictimsTest, ForcingALauncherEndsItsHelpersAndNoneOfItsGames) {
    LinuxDesktop machine;
    const auto program = [&](const std::string& file) {
        return machine.program("Apps/arcade/" + file);
    };
    const std::string launcher = program("bin32/arcade");
    const std::string helper = program("bin64/webhelper");
    std::set<pid_t> others = {machine.desktop.start({program("games/duel/server"), "--helper"})};
    for (const bool isPlaying : {false, true}) {
        if (isPlaying) {
            others.insert(machine.shown(machine.desktop.start({program("games/race/race")})));
        }
        const pid_t running = machine.shown(machine.desktop.start({launcher}));
        const pid_t helping = machine.desktop.start({helper, "--helper"});
        EXPECT_TRUE(waitFor([&] { return machine.table.executablePath(helping) == helper; }));
        EXPECT_TRUE(machine.quitter.quitApp(running, true));
        EXPECT_FALSE(machine.isRunning(running) || machine.isRunning(helping)) << isPlaying;
        for (const pid_t other : others) {
            EXPECT_TRUE(machine.isRunning(other)) << isPlaying;
        }
    }
}

} // namespace
} // namespace calmora
