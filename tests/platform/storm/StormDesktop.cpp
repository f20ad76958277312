#include "StormDesktop.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {

namespace {

namespace fs = std::filesystem;

/// The file of each application below the home folder; a program that is no application has no
/// window class and no desktop entry.
const std::map<std::string, std::string> applications = {
    // A private folder with helpers.
    {"paint", "Apps/paint/paint"},
    // A folder that many programs share.
    {"notes", "bin/notes"},
    {"bystander", "bin/bystander"},
    // A browser and its web application.
    {"surf", "Apps/surf/surf"},
    {"surf-mail", "Apps/surf/surf"},
    // Two ids of one well-known identifier.
    {"firefox", "Apps/firefox/firefox"},
    {"firefox-esr", "Apps/firefox-esr/firefox-esr"},
};
const std::map<std::string, std::string> otherPrograms = {
    {"paint-helper", "Apps/paint/paint-helper"},
    {"paint-tool", "Apps/paint-tools/paint-tool"},
    {"tool", "bin/tool"},
};

/// The keeper of a program: never returns.
[[noreturn]] void keep(StormDesktop& machine, const std::vector<std::string>& command,
                       const std::vector<std::string>& next, int report) {
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
    const pid_t program = machine.desktop.start(command);
    tell(program);
    ::waitpid(program, nullptr, 0);
    // Others start processes as well, so it may take several attempts.
    for (int attempt = 0; attempt < 500; ++attempt) {
        StormDesktop::setLastId(program - 1);
        const pid_t later = ::fork();
        if (later == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            if (!next.empty() && ::getpid() == program) {
                machine.desktop.enter();
                std::vector<char*> words;
                for (const std::string& word : next) {
                    words.push_back(const_cast<char*>(word.c_str()));
                }
                words.push_back(nullptr);
                ::execv(words.front(), words.data());
            }
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

} // namespace

StormDesktop::StormDesktop() {
    for (const auto& [name, path] : applications) {
        install(name, "Name=" + name + "\nExec=" + program(path) + " --instance " + name +
                          "\nStartupWMClass=" + name);
    }
    for (const auto& [name, path] : otherPrograms) {
        (void)program(path);
    }
}

void StormDesktop::setLastId(pid_t last) {
    std::ofstream("/proc/sys/kernel/ns_last_pid") << last;
}

fs::path StormDesktop::file(const std::string& program) const {
    const auto found = applications.find(program);
    return desktop.home() /
           (found != applications.end() ? found->second : otherPrograms.at(program));
}

std::vector<std::string> StormDesktop::command(const std::string& application,
                                               std::vector<std::string> options) const {
    const std::vector<std::string> words = {file(application).string(), "--instance", application,
                                            "--class", application};
    options.insert(options.begin(), words.begin(), words.end());
    return options;
}

pid_t StormDesktop::shownApplication(const std::string& application,
                                     std::vector<std::string> options) {
    return shown(desktop.start(command(application, std::move(options))));
}

pid_t StormDesktop::background(const std::string& program) {
    return desktop.start({file(program).string(), "--helper"});
}

KeptProgram StormDesktop::kept(const std::string& application,
                               const std::vector<std::string>& next) {
    std::array<int, 2> ends{};
    KeptProgram result;
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return result;
    }
    result.report = FileDescriptor(ends[0]);
    const FileDescriptor writing(ends[1]);
    result.keeper = ::fork();
    if (result.keeper == 0) {
        keep(*this, command(application), next, writing.get());
    }
    if (::read(result.report.get(), &result.program, sizeof result.program) > 0) {
        shown(result.program);
    }
    return result;
}

std::optional<pid_t> StormDesktop::successor(const KeptProgram& program) {
    pollfd entry{program.report.get(), POLLIN, 0};
    pid_t later = 0;
    constexpr int milliseconds = 3000;
    if (::poll(&entry, 1, milliseconds) > 0 &&
        ::read(program.report.get(), &later, sizeof later) == sizeof later) {
        return later;
    }
    return std::nullopt;
}

void StormDesktop::end(const Watched& process) {
    if (process.descriptor && process.descriptor->send(SIGKILL) == 0) {
        // Collected only if it is a child of ours; others go with their parents.
        waitFor([&] { return process.hasEnded(); });
        siginfo_t info{};
        ::waitid(P_PIDFD, static_cast<id_t>(process.descriptor->descriptor()), &info,
                 WEXITED | WNOHANG);
    }
}

} // namespace calmora
