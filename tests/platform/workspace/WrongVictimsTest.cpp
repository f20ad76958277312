#include "WorkspaceTest.h"

#include <filesystem>
#include <fstream>

namespace calmora {
namespace {

namespace fs = std::filesystem;

struct Program {
    /// Desktop id; the window's class too.
    std::string id;
    /// Below the folder of the user's programs; both of a pair may be the same file.
    std::string file;
    /// What the list says.
    std::string identifier;
};

struct Pair {
    const char* name;
    Program victim;
    Program neighbour;
};

void PrintTo(const Pair& pair, std::ostream* out) {
    *out << pair.name;
}

class PairTest : public testing::TestWithParam<Pair> {};

TEST_P(PairTest, ForcingOneApplicationLeavesTheOther) {
    LinuxDesktop machine;
    const fs::path entries = machine.desktop.home() / "data" / "applications";
    fs::create_directories(entries);
    const auto& [name, victim, neighbour] = GetParam();
    const auto fileOf = [&](const Program& program) {
        return machine.desktop.home() / "Apps" / program.file;
    };
    for (const Program& program : {victim, neighbour}) {
        fs::create_directories(fileOf(program).parent_path());
        fs::copy_file(windowClient(), fileOf(program), fs::copy_options::skip_existing);
        std::ofstream(entries / (program.id + ".desktop"))
            << "[Desktop Entry]\nType=Application\nName=" << program.id
            << "\nExec=" << fileOf(program).string() << " --instance " << program.id
            << "\nStartupWMClass=" << program.id << "\n";
    }
    const auto start = [&](const Program& program) {
        return machine.shown(machine.desktop.start(
            {fileOf(program).string(), "--instance", program.id, "--class", program.id}));
    };
    const pid_t other = start(neighbour);
    const pid_t first = start(victim);
    const pid_t second = start(victim);
    EXPECT_EQ(machine.listed(first)->bundleIdentifier, victim.identifier);
    EXPECT_EQ(machine.listed(other)->bundleIdentifier, neighbour.identifier);
    EXPECT_TRUE(machine.quitter.quitApp(first, true));
    EXPECT_FALSE(machine.isRunning(first));
    EXPECT_FALSE(machine.isRunning(second)) << "the same application";
    EXPECT_TRUE(machine.isRunning(other));
}

TEST(WrongVictimsTest, ForcingALauncherEndsItsHelpersAndNoneOfItsGames) {
    LinuxDesktop machine;
    const fs::path folder = machine.desktop.home() / "Apps" / "arcade";
    const auto program = [&](const char* file) {
        fs::create_directories((folder / file).parent_path());
        fs::copy_file(windowClient(), folder / file);
        return (folder / file).string();
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

const Program browser{"surf", "surf/surf", "surf"};
const Program webApplication{"surf-mail", "surf/surf", "surf-mail"};
const Program release{"firefox", "firefox/firefox", "org.mozilla.firefox"};
const Program longTerm{"firefox-esr", "firefox-esr/firefox-esr", "org.mozilla.firefox"};

INSTANTIATE_TEST_SUITE_P(
    WrongVictims, PairTest,
    testing::Values(Pair{"browser_of_web_application", browser, webApplication},
                    Pair{"web_application_of_browser", webApplication, browser},
                    Pair{"one_of_two_ids", release, longTerm},
                    Pair{"the_other_of_two_ids", longTerm, release}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace calmora
