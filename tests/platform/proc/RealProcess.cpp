#include "RealProcess.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {

RealProcess::RealProcess(const std::function<void()>& body) {
    std::array<int, 2> ready{};
    if (pipe2(ready.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    id_ = fork();
    if (id_ < 0) {
        throw std::runtime_error("no process");
    }
    if (id_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        close(ready[0]);
        body();
        // Children of the body may keep the pipe open, so its end alone would not do.
        while (write(ready[1], "", 1) < 0 && errno == EINTR) {
        }
        close(ready[1]);
        while (true) {
            pause();
        }
    }
    close(ready[1]);
    char byte = 0;
    // A byte says that it is ready, the end of the pipe that it closed it or has died.
    while (read(ready[0], &byte, 1) < 0 && errno == EINTR) {
    }
    close(ready[0]);
}

RealProcess::~RealProcess() {
    if (id_ > 0) {
        ::kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
    }
}

void RealProcess::kill() const {
    ::kill(id_, SIGKILL);
    siginfo_t info{};
    waitid(P_PID, static_cast<id_t>(id_), &info, WEXITED | WNOWAIT);
}

void RealProcess::reap() {
    waitpid(id_, nullptr, 0);
    id_ = 0;
}

std::string inFork(const std::function<std::string()>& body) {
    std::array<int, 2> answer{};
    if (pipe(answer.data()) != 0) {
        return "no pipe";
    }
    const pid_t child = fork();
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        close(answer[0]);
        const std::string text = "done:" + body();
        const bool isWritten =
            write(answer[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
        _exit(isWritten ? 0 : 1);
    }
    close(answer[1]);
    std::string text;
    std::array<char, 512> buffer{};
    ssize_t count = 0;
    while ((count = read(answer[0], buffer.data(), buffer.size())) > 0) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    close(answer[0]);
    waitpid(child, nullptr, 0);
    return text.starts_with("done:") ? text.substr(5) : "the fork died";
}

std::string asNobody(const std::function<std::string()>& body) {
    return inFork([&] { return setuid(nobody) == 0 ? body() : "no right to be nobody"; });
}

bool holdsSoon(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

} // namespace calmora
