#include "platform/quit/RealProcesses.h"

#include <array>
#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {
namespace {

namespace fs = std::filesystem;

/// Becomes `program`; only returns into the void.
[[noreturn]] void become(const fs::path& program, const RealProcess& how) {
    if (how.ignoresTerm) {
        std::signal(SIGTERM, SIG_IGN);
    }
    constexpr uid_t nobody = 65534;
    if (!how.isForeign || setresuid(nobody, nobody, nobody) == 0) {
        execl(program.c_str(), program.c_str(), "30", nullptr);
    }
    _exit(127);
}

} // namespace

RealProcesses::RealProcesses() {
    std::string path = fs::temp_directory_path() / "calmora-quit-XXXXXX";
    if (!mkdtemp(path.data())) {
        throw std::runtime_error("no temporary folder");
    }
    root_ = fs::canonical(path);
    chmod(root_.c_str(), 0755);
}

RealProcesses::~RealProcesses() {
    for (const ProcessId process : started_) {
        if (isRunning(process)) {
            kill(process, SIGKILL);
        }
    }
    for (const ProcessId process : started_) {
        waitpid(process, nullptr, 0);
    }
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

ProcessId RealProcesses::start(const RealProcess& how) {
    const fs::path program = fs::path(folder(how.folder)) / "program";
    fs::create_directories(program.parent_path());
    if (!fs::exists(program)) {
        fs::copy_file("/usr/bin/sleep", program);
    }
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) {
        throw std::runtime_error("no pipe");
    }
    const ProcessId child = fork();
    if (child == 0) {
        const ProcessId grandchild = how.isOrphan ? fork() : 0;
        if (grandchild > 0) {
            _exit(0);
        }
        const ProcessId self = getpid();
        if (write(pipe[1], &self, sizeof self) == sizeof self) {
            become(program, how);
        }
        _exit(127);
    }
    ProcessId process = 0;
    const bool isTold = read(pipe[0], &process, sizeof process) == sizeof process;
    close(pipe[0]);
    close(pipe[1]);
    if (how.isOrphan) {
        waitpid(child, nullptr, 0);
    }
    if (!isTold) {
        throw std::runtime_error("no process");
    }
    started_.push_back(process);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!isRunning(process)) {
        if (std::chrono::steady_clock::now() > deadline) {
            throw std::runtime_error("the program does not start");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return process;
}

std::string RealProcesses::folder(const std::string& name) const {
    return (root_ / name).string() + "/";
}

void RealProcesses::reap() {
    for (const ProcessId process : started_) {
        waitpid(process, nullptr, WNOHANG);
    }
}

bool RealProcesses::isRunning(ProcessId process) const {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/" + std::to_string(process) + "/exe", error);
    return !error && program.string().starts_with(root_.string());
}

} // namespace calmora
