// Quits real applications by the hundred under load, with processes beside them that must live,
// and counts what must not happen. The ids of ended processes are in use again at once.
//
// usage: calmora_quitting_storm [quits] [seed]
#include "StormDesktop.h"

#include "support/Sandbox.h"

#include <csignal>
#include <cstdio>
#include <random>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;

/// One quit: what it is of, and what it must do.
struct Round {
    pid_t target = 0;
    bool force = false;
    /// Gone when the answer is true.
    std::vector<pid_t> meant = {};
    /// Alive whatever the answer.
    std::vector<pid_t> spared = {};
    /// Neither: they may end with the others.
    std::vector<pid_t> rest = {};
    /// Whether the target is to be quit; else the quit must answer false and end nothing.
    bool quits = true;
    /// Its program's id passes on while the quit runs, to a process that must live.
    KeptProgram kept = {};
};

struct Counts {
    int quits = 0;
    int wrongVictims = 0;
    int falselyGone = 0;
    int otherAnswers = 0;
};

class Storm {
  public:
    explicit Storm(unsigned seed) : random_(seed) {
        for (const char* command : {"while :; do :; done", "while :; do /bin/true; done"}) {
            machine_.desktop.start({"/bin/sh", "-c", command});
        }
        stand();
    }

    void run(int quits) {
        for (int i = 0; i < quits; ++i) {
            const auto& [name, make] = scenarios_[static_cast<std::size_t>(i) % scenarios_.size()];
            forces_ = static_cast<std::size_t>(i) / scenarios_.size() % 2 == 0;
            StormDesktop::setLastId(lowestId);
            const testing::ScopedTrace trace(__FILE__, __LINE__, name);
            play(name, make());
        }
    }

    /// Writes what was counted; whether nothing happened that must not.
    bool report() const {
        std::printf("%d quits: %d wrong victims, %d falsely gone, %d other wrong answers\n",
                    counts_.quits, counts_.wrongVictims, counts_.falselyGone, counts_.otherAnswers);
        return counts_.wrongVictims + counts_.falselyGone + counts_.otherAnswers == 0;
    }

  private:
    using Ids = std::vector<pid_t>;

    /// A process that lives through all rounds.
    struct Standing {
        std::function<pid_t()> start;
        std::optional<Watched> process = {};
    };

    /// New processes get the free ids above this one, those of the last round first.
    static constexpr pid_t lowestId = 300;

    bool coin() { return (random_() & 1U) != 0; }

    /// What lives through all rounds; starts again what a round has ended.
    void stand() {
        for (Standing& place : standing_) {
            if (!place.process || place.process->hasEnded()) {
                place.process.emplace(place.start());
            }
        }
    }

    void play(const std::string& name, const Round& round) {
        const auto watch = [](const Ids& ids) {
            return std::vector<Watched>(ids.begin(), ids.end());
        };
        const auto meant = watch(round.meant);
        auto spared = watch(round.spared);
        const auto rest = watch(round.rest);
        const auto fault = [&](int& count, const char* what, pid_t process) {
            ++count;
            std::printf("%s (%s): %s: %d\n", name.c_str(), round.force ? "forced" : "asked", what,
                        process);
        };
        const bool answer = machine_.quitter.quitApp(round.target, round.force);
        ++counts_.quits;
        if (answer != round.quits) {
            fault(counts_.otherAnswers, answer ? "says gone" : "says not gone", round.target);
        }
        for (const Watched& process : meant) {
            if (answer && !process.hasEnded()) {
                fault(counts_.falselyGone, "lives", process.id);
            }
        }
        if (round.kept.keeper != 0) {
            spared.emplace_back(StormDesktop::successor(round.kept).value_or(0));
        }
        // What was wrongly asked or signalled takes a moment to end.
        std::this_thread::sleep_for(30ms);
        const auto judge = [&](const Watched& process) {
            if (process.id == 0) {
                fault(counts_.otherAnswers, "the id was not passed on", round.target);
            } else if (process.hasEnded()) {
                fault(counts_.wrongVictims, "wrong victim", process.id);
            }
        };
        std::ranges::for_each(spared, judge);
        std::ranges::for_each(standing_, [&](const auto& place) { judge(*place.process); });
        for (const auto& processes : {rest, spared, meant}) {
            std::ranges::for_each(processes, [&](const auto& each) { machine_.end(each); });
        }
        stand();
    }

    Ids running(const std::string& program) {
        Ids ids;
        const std::string file = machine_.file(program).string();
        for (const ProcessId process : machine_.reader.processesOf(::getuid(), 4096)) {
            if (machine_.reader.executable(process) == file) {
                ids.push_back(process);
            }
        }
        return ids;
    }

    Round privateFolder() {
        const std::string helper = machine_.file("paint-helper").string();
        const pid_t app =
            machine_.shownApplication("paint", {"--child", helper, "--orphan", helper});
        waitFor([&] { return running("paint-helper").size() == 2; });
        Ids helpers = running("paint-helper");
        Round round{.target = app, .force = forces_, .meant = {app}};
        round.spared = {machine_.background("paint-tool"), machine_.background("paint-tool")};
        Ids& place = round.force ? round.meant : round.spared;
        place.insert(place.begin(), helpers.begin(), helpers.end());
        return round;
    }

    Round severalInstances() {
        const pid_t one = machine_.shownApplication("notes");
        const pid_t two = machine_.shownApplication("notes", {"--windows", "2"});
        return forces_ ? Round{.target = one, .force = true, .meant = {one, two}}
                       : Round{.target = one, .meant = {one}, .spared = {two}};
    }

    /// Two applications that share something; which of them is quit is left to chance.
    Round oneOfTwo(const char* first, const char* second) {
        const bool swapped = coin();
        const pid_t other = machine_.shownApplication(swapped ? first : second);
        const pid_t app = machine_.shownApplication(swapped ? second : first);
        return {.target = app, .force = forces_, .meant = {app}, .spared = {other}};
    }

    /// A shell that runs an application, stays and goes on as another program.
    Round belowAShell() {
        const std::string script = (machine_.desktop.home() / "bin" / "start.sh").string();
        std::ofstream(script) << "\"$@\"\nexec /usr/bin/sleep 60\n";
        auto words = machine_.command("notes");
        words.insert(words.begin(), {"/bin/sh", script});
        const pid_t shell = machine_.desktop.start(words);
        const pid_t app = machine_.shown(descendantOf(shell, 1));
        return {.target = app, .force = forces_, .meant = {app}, .spared = {shell}};
    }

    Round stubborn() {
        // Asking takes all its time in vain, so it is tried once in a while.
        const bool force = random_() % 8 != 0;
        const pid_t app = machine_.shownApplication("notes", {"--ignore-close", "--ignore-term"});
        const pid_t other = machine_.shownApplication("notes", {"--ignore-term"});
        Round round{.target = app, .force = force, .quits = force};
        (force ? round.meant : round.spared) = {app, other};
        return round;
    }

    Round stopped() {
        const pid_t app = machine_.shownApplication("notes");
        ::kill(app, SIGSTOP);
        return {.target = app, .force = true, .meant = {app}};
    }

    Round cannotBeAsked() {
        const pid_t app = machine_.shownApplication("surf", {"--no-delete"});
        return {.target = app, .meant = {app}, .spared = {machine_.shownApplication("paint")}};
    }

    /// What has a new window when it is asked, stays.
    Round asks() {
        const pid_t app = machine_.shownApplication("notes", {"--ask-on-close"});
        return {.target = app, .spared = {app}, .quits = false};
    }

    /// The id of one instance passes on while the other, which ignores signals, still runs.
    Round passesOnWhileQuitting() {
        KeptProgram kept = machine_.kept("notes");
        const pid_t other = machine_.shownApplication("notes", {"--ignore-term", "--ignore-close"});
        Round round{.target = coin() ? kept.program : other, .force = true};
        round.meant = {kept.program, other};
        round.spared = {kept.keeper};
        round.kept = std::move(kept);
        return round;
    }

    /// The id of what was listed has passed on to another application before the quit.
    Round passedOnBefore() {
        const KeptProgram kept =
            machine_.kept("notes", machine_.command(coin() ? "notes" : "surf"));
        ::kill(kept.program, SIGKILL);
        const pid_t later = StormDesktop::successor(kept).value_or(0);
        waitFor([&] { return machine_.windowCount(later) == 1; });
        return {.target = kept.program,
                .force = forces_,
                .spared = {later, kept.keeper},
                .quits = false};
    }

    /// Two instances in sandboxes, another application with the same path, and the file itself.
    Round sandboxes() {
        Ids inits;
        Ids rest;
        const auto start = [&](const char* id, const char* instance) {
            const pid_t sandbox = machine_.desktop.start(
                sandboxed(machine_.desktop.home(), machine_.file("tool").parent_path(), id,
                          instance, {"/app/bin/tool", "--class", id}));
            inits.push_back(descendantOf(sandbox, 1));
            rest.insert(rest.end(), {inits.back(), sandbox});
            return machine_.shown(descendantOf(sandbox, 2));
        };
        const pid_t other = start("org.example.Other", "1");
        const pid_t one = start("org.example.App", "1");
        const pid_t two = start("org.example.App", "2");
        Round round{.target = one, .force = forces_, .meant = {one}, .spared = {other, inits[0]}};
        (round.force ? round.meant : round.spared).push_back(two);
        round.spared.push_back(machine_.background("tool"));
        round.rest = rest;
        return round;
    }

    std::mt19937 random_;
    /// Whether this turn of the scenarios quits by force; some always or never do.
    bool forces_ = true;
    StormDesktop machine_;
    std::vector<Standing> standing_ = {
        {[this] { return machine_.shownApplication("bystander", {"--lifetime", "7200"}); }},
        {[this] { return machine_.desktop.start({"/usr/bin/sleep", "7200"}); }},
        {[this] {
            return machine_.desktop.start(
                {machine_.file("tool").string(), "--helper", "--lifetime", "7200"});
        }},
        {[this] { return machine_.desktop.server(); }},
        {[this] { return machine_.desktop.windowManager(); }}};
    Counts counts_;
    std::vector<std::pair<std::string, std::function<Round()>>> scenarios_ = {
        {"private folder", [this] { return privateFolder(); }},
        {"several instances", [this] { return severalInstances(); }},
        {"one executable", [this] { return oneOfTwo("surf", "surf-mail"); }},
        {"one well-known id", [this] { return oneOfTwo("firefox", "firefox-esr"); }},
        {"below a shell", [this] { return belowAShell(); }},
        {"ignores signals", [this] { return stubborn(); }},
        {"stopped", [this] { return stopped(); }},
        {"cannot be asked", [this] { return cannotBeAsked(); }},
        {"asks", [this] { return asks(); }},
        {"id passes on", [this] { return passesOnWhileQuitting(); }},
        {"id passed on before", [this] { return passedOnBefore(); }},
        {"sandboxes", [this] { return sandboxes(); }},
    };
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
        storm.run(quits);
        return storm.report() ? 0 : 1;
    });
}
