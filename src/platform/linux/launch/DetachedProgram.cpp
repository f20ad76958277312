// SPDX-License-Identifier: MIT
#include "platform/linux/launch/DetachedProgram.h"

#include "platform/linux/launch/ProgramEnvironment.h"
#include "platform/linux/xdg/TextFile.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {
namespace {

/// Executing a program from a disk that sleeps takes seconds; one that never answers must not hold
/// this program.
constexpr int executionMilliseconds = 3000;

struct Pipe {
    FileDescriptor reads;
    FileDescriptor writes;
};

std::optional<Pipe> makePipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return std::nullopt;
    }
    return Pipe{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// A copy of a start in the form of execve(2). Everything that the new process needs is made before
/// fork(2): another thread may hold the allocator's lock.
class Execution {
  public:
    explicit Execution(const ProgramStart& start)
        : start_(start), argumentPointers_(pointersTo(start_.arguments)) {
        start_.environment.emplace_back(launchedPid());
        start_.environment.back().append(digits, '\0');
        environmentPointers_ = pointersTo(start_.environment);
    }

    Execution(const Execution&) = delete;
    Execution& operator=(const Execution&) = delete;

    /// Becomes the program in the new process; returns only if that fails.
    void execute() {
        setsid();
        for (int signal = 1; signal < NSIG; ++signal) {
            std::signal(signal, SIG_DFL);
        }
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        rlimit limit{};
        if (getrlimit(RLIMIT_NOFILE, &limit) == 0 && start_.openFiles <= limit.rlim_max) {
            limit.rlim_cur = start_.openFiles;
            setrlimit(RLIMIT_NOFILE, &limit);
        }
        if (chdir(start_.folder.c_str()) != 0 && chdir("/") != 0) {
            return;
        }
        writePid(getpid());
        execve(start_.program.c_str(), argumentPointers_.data(), environmentPointers_.data());
    }

  private:
    static constexpr std::size_t digits = 20;

    void writePid(pid_t pid) {
        std::array<char, digits> reversed{};
        std::size_t count = 0;
        for (; pid > 0; pid /= 10) {
            reversed[count++] = static_cast<char>('0' + pid % 10);
        }
        char* to = start_.environment.back().data() + launchedPid().size();
        while (count > 0) {
            *to++ = reversed[--count];
        }
    }

    ProgramStart start_;
    std::vector<char*> argumentPointers_;
    std::vector<char*> environmentPointers_;
};

bool writeAll(int descriptor, const void* bytes, std::size_t size) {
    return write(descriptor, bytes, size) == static_cast<ssize_t>(size);
}

/// Reads once, whatever signals come.
ssize_t readSome(int descriptor, void* bytes, std::size_t size) {
    ssize_t count = -1;
    do {
        count = read(descriptor, bytes, size);
    } while (count < 0 && errno == EINTR);
    return count;
}

/// Runs in the new process.
[[noreturn]] void waitAndExecute(Execution& execution, Pipe& go, Pipe& status) {
    go.writes.reset();
    const int nothing = open("/dev/null", O_RDWR);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (nothing >= 0) {
            dup2(nothing, standard);
        }
    }
    close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    char byte = 0;
    if (readSome(go.reads.get(), &byte, 1) == 1) {
        execution.execute();
        writeAll(status.writes.get(), &byte, 1);
    }
    _exit(EXIT_FAILURE);
}

} // namespace

std::optional<DetachedProgram> DetachedProgram::prepare(const ProgramStart& start) {
    Execution execution(start);
    auto go = makePipe();
    auto status = makePipe();
    if (!go || !status) {
        return std::nullopt;
    }
    // The process in between ends at once, which makes the system the parent of the other.
    const pid_t between = fork();
    if (between == 0) {
        const pid_t program = fork();
        if (program == 0) {
            waitAndExecute(execution, *go, *status);
        }
        const bool isTold = program > 0 && writeAll(status->writes.get(), &program, sizeof program);
        _exit(isTold ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    status->writes.reset();
    pid_t program = 0;
    const bool isMade = between > 0 && readSome(status->reads.get(), &program, sizeof program) ==
                                           static_cast<ssize_t>(sizeof program);
    while (between > 0 && waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
    }
    if (!isMade) {
        return std::nullopt;
    }
    return DetachedProgram(program, std::move(go->writes), std::move(go->reads),
                           std::move(status->reads));
}

bool DetachedProgram::run() {
    const char byte = 1;
    if (!writeAll(go_.get(), &byte, 1)) {
        return false;
    }
    go_.reset();
    pollfd request{status_.get(), POLLIN, 0};
    if (poll(&request, 1, executionMilliseconds) != 1) {
        return true;
    }
    char failed = 0;
    return readSome(status_.get(), &failed, 1) == 0;
}

bool waitForControlGroup(ProcessId process, std::string_view name,
                         std::chrono::milliseconds timeout) {
    const auto end = std::chrono::steady_clock::now() + timeout;
    const std::string file = "/proc/" + std::to_string(process) + "/cgroup";
    while (true) {
        const auto groups = readTextFile(file);
        if (groups && groups->find(name) != std::string::npos) {
            return true;
        }
        if (!groups || std::chrono::steady_clock::now() >= end) {
            return false;
        }
        constexpr std::chrono::milliseconds pause{2};
        std::this_thread::sleep_for(pause);
    }
}

} // namespace calmora
