// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/BackgroundScan.h"

#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace calmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A proc file system and one installed application, /bin/keeper.
class BackgroundScanTest : public testing::Test {
  protected:
    BackgroundScanTest() {
        const auto program = folder.write("bin/keeper", "x");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        folder.write("share/applications/keeper.desktop",
                     "[Desktop Entry]\nType=Application\nName=Keeper\nExec=" + program.string());
        BaseDirectories directories;
        directories.dataDirs = {folder.path() / "share"};
        installed = InstalledApplications(directories, {});
        installed.refresh();
        count(1, 5);
    }

    /// A young process that runs a program, and the number of tasks that the kernel tells.
    void run(int process, const std::string& program) const {
        const std::string proc = "proc/" + std::to_string(process) + "/";
        folder.write(proc + "stat", std::to_string(process) + " (" + program +
                                        ") S 1 7 7 0 -1 0 0 0 0 0 0 0 0 0 20 0 1 0 " +
                                        std::to_string(ticksNow()) + " 0 0 0\n");
        folder.write(proc + "status", "Uid:\t" + std::to_string(::getuid()) + "\t0\t0\t0\n");
        folder.write(proc + "comm", program + "\n");
        folder.write(proc + "cmdline", (folder.path() / "bin" / program).string() + '\0');
        folder.write(proc + "environ", "DISPLAY=:7");
        const auto link = folder.path() / proc / "exe";
        std::filesystem::remove(link);
        std::filesystem::create_symlink(folder.path() / "bin" / program, link);
    }

    void count(int tasks, int last) const {
        folder.write("proc/loadavg", "0.20 0.18 0.12 1/" + std::to_string(tasks) + " " +
                                         std::to_string(last) + "\n");
    }

    bool scan() { return background.scan(installed, ":7"); }

    TempFolder folder;
    InstalledApplications installed{{}, {}};
    const ProcessReader reader{
        (std::filesystem::create_directory(folder.path() / "proc"), folder.path() / "proc")};
    BackgroundScan background{reader};
};

TEST_F(BackgroundScanTest, TellsWhatStartsEndsAndBecomesAnotherProgram) {
    EXPECT_FALSE(scan());
    run(7, "keeper");
    count(2, 7);
    EXPECT_TRUE(scan());
    EXPECT_THAT(background.agents({}), ElementsAre(7));
    EXPECT_FALSE(scan());

    // Started by a script that is not installed, without another task.
    run(9, "launcher");
    count(3, 9);
    EXPECT_FALSE(scan());
    run(9, "keeper");
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    EXPECT_TRUE(scan());
    EXPECT_THAT(background.agents({}), ElementsAre(7, 9));

    for (const int process : {7, 9}) {
        std::filesystem::remove_all(folder.path() / "proc" / std::to_string(process));
    }
    count(1, 9);
    EXPECT_TRUE(scan());
    EXPECT_THAT(background.agents({}), IsEmpty());

    // A container may not tell.
    folder.write("proc/loadavg", "0.00 0.00 0.00 0/0 0\n");
    EXPECT_FALSE(scan());
    run(11, "keeper");
    EXPECT_TRUE(scan());
    EXPECT_THAT(background.agents({}), ElementsAre(11));
}

} // namespace
} // namespace calmora
