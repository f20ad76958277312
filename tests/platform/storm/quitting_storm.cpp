// SPDX-License-Identifier: MIT
// Quits real applications by the hundred under load, with processes beside them that must live,
// and counts what must not happen. The ids of ended processes are in use again at once.
//
// usage: calmora_quitting_storm [quits] [seed]

#include "platform/linux/proc/PidFd.h"
#include "platform/workspace/WorkspaceTest.h"

#include <csignal>
#include <fcntl.h>
#include <random>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;

/// A process that is watched without the program under test: its end cannot be missed, and no
/// later process with the same id is taken for it.
struct Watched {
    explicit Watched(pid_t process) : id(process) {
        if (auto opened = PidFd::open(process)) {
            descriptor = std::make_shared<const PidFd>(*std::move(opened));
        }
    }

    [[nodiscard]] bool hasEnded() const { return !descriptor || descriptor->hasExited(); }

    pid_t id;
    std::shared_ptr<const PidFd> descriptor;
};

/// A program below a keeper: when the program ends, the keeper collects it at once and makes
/// another process with the same id.
struct KeptProgram {
    pid_t keeper = 0;
    pid_t program = 0;
    FileDescriptor report;
};

/// Makes the kernel continue after this process id.
void setLastId(pid_t last) {
    std::ofstream("/proc/sys/kernel/ns_last_pid") << last;
}

/// The keeper of a program: never returns.
[[noreturn]] void keep(VirtualDesktop& desktop, const std::vector<std::string>& command,
                       int report) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::prctl(PR_SET_CHILD_SUBREAPER, 0);
    for (const int signal : {SIGTERM, SIGINT, SIGCHLD}) {
        std::signal(signal, SIG_DFL);
    }
    const auto tell = [&](pid_t process) {
        if (::write(report, &process, sizeof process) < 0) {
            ::_exit(1);
        }
    };
    const pid_t program = desktop.start(command);
    tell(program);
    ::waitpid(program, nullptr, 0);
    // Others start processes as well, so it may take several attempts.
    for (int attempt = 0; attempt < 500; ++attempt) {
        setLastId(program - 1);
        const pid_t later = ::fork();
        if (later == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            while (true) {
                ::pause();
            }
        }
        if (later == program) {
            tell(later);
            break;
        }
        ::kill(later, SIGKILL);
        ::waitpid(later, nullptr, 0);
    }
    while (true) {
        ::pause();
    }
}

/// A virtual desktop with installed programs of every kind, each the same test client.
struct StormDesktop : LinuxDesktop {
    StormDesktop() {
        for (const std::string name : {"bystander", "notes"}) {
            install(name, "Name=" + name + "\nExec=" + file(name) + " --instance " + name +
                              "\nStartupWMClass=" + name);
        }
    }

    /// The file of a program, in a folder that all share.
    [[nodiscard]] std::string file(const std::string& name) const { return program("bin/" + name); }

    /// The command that runs an application with a window of its own class.
    [[nodiscard]] std::vector<std::string> command(const std::string& application,
                                                   std::vector<std::string> options = {}) const {
        const std::vector<std::string> words = {file(application), "--instance", application,
                                                "--class", application};
        options.insert(options.begin(), words.begin(), words.end());
        return options;
    }

    /// Starts an application and waits until it is listed.
    pid_t shownApplication(const std::string& application, std::vector<std::string> options = {}) {
        return shown(desktop.start(command(application, std::move(options))));
    }

    /// Starts an application below a keeper and waits until it is listed.
    KeptProgram kept(const std::string& application) {
        std::array<int, 2> ends{};
        KeptProgram result;
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            return result;
        }
        result.report = FileDescriptor(ends[0]);
        const FileDescriptor writing(ends[1]);
        result.keeper = ::fork();
        if (result.keeper == 0) {
            keep(desktop, command(application), writing.get());
        }
        if (::read(result.report.get(), &result.program, sizeof result.program) > 0) {
            shown(result.program);
        }
        return result;
    }

    /// The process that got a kept program's id after its end; absent within the time.
    static std::optional<pid_t> successor(const KeptProgram& program) {
        pollfd entry{program.report.get(), POLLIN, 0};
        pid_t later = 0;
        constexpr int milliseconds = 3000;
        if (::poll(&entry, 1, milliseconds) > 0 &&
            ::read(program.report.get(), &later, sizeof later) == sizeof later) {
            return later;
        }
        return std::nullopt;
    }

    /// Ends a process that this one or a process of its has started, and collects it.
    void end(const Watched& process) {
        if (process.descriptor && process.descriptor->send(SIGKILL) == 0) {
            // Collected only if it is a child of ours; others go with their parents.
            waitFor([&] { return process.hasEnded(); });
            siginfo_t info{};
            ::waitid(P_PIDFD, static_cast<id_t>(process.descriptor->descriptor()), &info,
                     WEXITED | WNOHANG);
        }
    }
};

/// One quit: what it is of, and what it must do.
struct Round {
    pid_t target = 0;
    /// Gone when the answer is true.
    std::vector<pid_t> meant = {};
    /// Alive whatever the answer.
    std::vector<pid_t> spared = {};
    /// Its program's id passes on while the quit runs, to a process that must live.
    KeptProgram kept = {};
};

class Storm {
  public:
    explicit Storm(unsigned seed) : random_(seed) {
        for (const char* command : {"while :; do :; done", "while :; do /bin/true; done"}) {
            machine_.desktop.start({"/bin/sh", "-c", command});
        }
    }

    /// Whether nothing happened that must not.
    bool run(int quits) {
        for (int i = 0; i < quits; ++i) {
            setLastId(lowestId);
            play(passesOnWhileQuitting());
        }
        std::printf("%d quits: %d faults\n", quits, faults_);
        return faults_ == 0;
    }

  private:
    /// New processes get the free ids above this one, those of the last round first.
    static constexpr pid_t lowestId = 300;

    void play(const Round& round) {
        const std::vector<Watched> meant(round.meant.begin(), round.meant.end());
        std::vector<Watched> spared(round.spared.begin(), round.spared.end());
        const auto fault = [&](const char* what, pid_t process) {
            ++faults_;
            std::printf("%s: %d\n", what, process);
        };
        if (!machine_.quitter.quitApp(round.target, /*force=*/true)) {
            fault("says not gone", round.target);
        }
        for (const Watched& process : meant) {
            if (!process.hasEnded()) {
                fault("lives", process.id);
            }
        }
        spared.emplace_back(StormDesktop::successor(round.kept).value_or(0));
        // What was wrongly asked or signalled takes a moment to end.
        std::this_thread::sleep_for(30ms);
        const auto judge = [&](const Watched& process) {
            if (process.id == 0) {
                fault("the id was not passed on", round.target);
            } else if (process.hasEnded()) {
                fault("wrong victim", process.id);
            }
        };
        std::ranges::for_each(spared, judge);
        std::ranges::for_each(standing_, judge);
        for (const auto& processes : {spared, meant}) {
            std::ranges::for_each(processes, [&](const auto& each) { machine_.end(each); });
        }
    }

    /// The id of one instance passes on while the other, which ignores signals, still runs.
    Round passesOnWhileQuitting() {
        KeptProgram kept = machine_.kept("notes");
        const pid_t other = machine_.shownApplication("notes", {"--ignore-term", "--ignore-close"});
        Round round{.target = (random_() & 1U) != 0 ? kept.program : other};
        round.meant = {kept.program, other};
        round.spared = {kept.keeper};
        round.kept = std::move(kept);
        return round;
    }

    std::mt19937 random_;
    StormDesktop machine_;
    /// What lives through all rounds.
    std::vector<Watched> standing_ = {
        Watched(machine_.shownApplication("bystander", {"--long-lived"})),
        Watched(machine_.desktop.start({"/usr/bin/sleep", "7200"})),
        Watched(machine_.desktop.server()), Watched(machine_.desktop.windowManager())};
    int faults_ = 0;
};

/// Runs the storm in a pid namespace of its own, where process ids can be chosen and nothing of
/// the machine can be hit.
int inNamespace(const std::function<int()>& storm) {
    if (::unshare(CLONE_NEWPID | CLONE_NEWNS) != 0) {
        std::puts("needs root: process ids are chosen in a namespace");
        return 77;
    }
    const auto waitForEnd = [](pid_t process) {
        int status = 0;
        ::waitpid(process, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
    };
    const pid_t init = ::fork();
    if (init != 0) {
        return waitForEnd(init);
    }
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("proc", "/proc", "proc", 0, nullptr) != 0 || !canChooseProcessIds()) {
        std::perror("no namespace");
        ::_exit(1);
    }
    const pid_t child = ::fork();
    if (child != 0) {
        ::_exit(waitForEnd(child));
    }
    return storm();
}

} // namespace
} // namespace calmora

int main(int argc, char** argv) {
    const int quits = argc > 1 ? std::stoi(argv[1]) : 36;
    const auto seed = static_cast<unsigned>(argc > 2 ? std::stoul(argv[2]) : 1);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    testing::InitGoogleTest(&argc, argv);
    return calmora::inNamespace([&] {
        calmora::Storm storm(seed);
        return storm.run(quits) ? 0 : 1;
    });
}
