// SPDX-License-Identifier: MIT
#include "platform/linux/launch/DetachedProgram.h"

#include "platform/linux/launch/ProgramEnvironment.h"
#include "platform/linux/proc/PidFd.h"
#include "support/TempFolder.h"
#include "support/Waiting.h"

#include <csignal>
#include <sstream>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {
namespace {

/// A file of a process, zero bytes as line ends.
std::string fact(ProcessId process, const char* file) {
    std::string text = TempFolder::read("/proc/" + std::to_string(process) + '/' + file);
    std::ranges::replace(text, '\0', '\n');
    return text;
}

std::string line(const std::string& text, const std::string& beginning) {
    const std::size_t at = ('\n' + text).find('\n' + beginning);
    return at == std::string::npos ? "" : text.substr(at, text.find('\n', at) - at);
}

TEST(DetachedProgram, OutlivesItsStarterWithNothingOfIt) {
    int channel[2];
    ASSERT_EQ(pipe(channel), 0);
    const pid_t starter = fork();
    if (starter == 0) {
        // As untidy as a starter may be.
        std::signal(SIGPIPE, SIG_IGN);
        std::signal(SIGUSR1, SIG_IGN);
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_SETMASK, &all, nullptr);
        dup(channel[1]);
        auto program = DetachedProgram::prepare({.program = "/bin/sleep",
                                                 .arguments = {"sleeper", "30"},
                                                 .environment = {"A=1"},
                                                 .folder = "/usr",
                                                 .openFiles = 77});
        const ProcessId process = program && program->run() ? program->process() : 0;
        _exit(write(channel[1], &process, sizeof process) == sizeof process ? 0 : 1);
    }
    close(channel[1]);
    ProcessId process = 0;
    ASSERT_EQ(read(channel[0], &process, sizeof process), ssize_t{sizeof process});
    ASSERT_EQ(waitpid(starter, nullptr, 0), starter);
    ASSERT_GT(process, 0);
    char byte = 0;
    EXPECT_EQ(read(channel[0], &byte, 1), 0) << "it holds no end of our pipe";
    close(channel[0]);

    const auto end = PidFd::open(process);
    ASSERT_TRUE(end);
    EXPECT_FALSE(end->hasExited());
    EXPECT_EQ(fact(process, "cmdline"), "sleeper\n30\n");
    EXPECT_EQ(fact(process, "environ"),
              "A=1\n" + std::string(launchedPid()) + std::to_string(process) + '\n');
    const std::filesystem::path own = "/proc/" + std::to_string(process);
    const std::map<std::string, std::string> none{
        {"0", "/dev/null"}, {"1", "/dev/null"}, {"2", "/dev/null"}};
    std::map<std::string, std::string> descriptors;
    EXPECT_TRUE(waitFor([&] {
        descriptors.clear();
        for (const auto& file : std::filesystem::directory_iterator(own / "fd")) {
            std::error_code closed; // It has libraries open for a moment.
            descriptors[file.path().filename()] =
                std::filesystem::read_symlink(file.path(), closed);
        }
        return descriptors == none;
    })) << testing::PrintToString(descriptors);
    EXPECT_EQ(std::filesystem::read_symlink(own / "cwd"), "/usr");
    const std::string status = fact(process, "status");
    EXPECT_EQ(line(status, "SigBlk"), "SigBlk:\t0000000000000000");
    EXPECT_EQ(line(status, "SigIgn"), "SigIgn:\t0000000000000000");
    EXPECT_THAT(line(fact(process, "limits"), "Max open files"), testing::HasSubstr(" 77 "));
    EXPECT_EQ(getsid(process), process);
    kill(process, SIGKILL);
    EXPECT_TRUE(waitFor([&] { return end->hasExited(); }));
}

TEST(DetachedProgram, LeavesNothingWhenItDoesNotRun) {
    TempFolder folder;
    const auto broken = folder.write("broken", "#!/no/such/interpreter\n");
    std::filesystem::permissions(broken, std::filesystem::perms::all);
    auto program = DetachedProgram::prepare({.program = broken, .arguments = {"broken"}});
    ASSERT_TRUE(program);
    EXPECT_FALSE(program->run());

    auto dropped = DetachedProgram::prepare({.program = "/bin/sleep", .arguments = {"x", "30"}});
    ASSERT_TRUE(dropped);
    const auto end = PidFd::open(dropped->process());
    ASSERT_TRUE(end);
    dropped.reset();
    EXPECT_TRUE(waitFor([&] { return end->hasExited(); }));

    auto killed = DetachedProgram::prepare({.program = "/bin/sleep", .arguments = {"x", "30"}});
    ASSERT_TRUE(killed);
    const auto gone = PidFd::open(killed->process());
    kill(killed->process(), SIGKILL);
    EXPECT_TRUE(waitFor([&] { return gone->hasExited(); }));
    static volatile std::sig_atomic_t isBroken = 0;
    const auto before = std::signal(SIGPIPE, [](int) { isBroken = 1; });
    killed->run();
    std::signal(SIGPIPE, before);
    EXPECT_FALSE(isBroken) << "it would end us";
}

} // namespace
} // namespace calmora
