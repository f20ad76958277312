// SPDX-License-Identifier: MIT
#include "Children.h"

#include <algorithm>
#include <csignal>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {

Children::Children(std::size_t count) {
    constexpr std::size_t most = 2000;
    const ProcessId owner = getpid();
    for (std::size_t i = 0; i < std::min(count, most); ++i) {
        const ProcessId process = fork();
        if (process == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            while (getppid() == owner) {
                pause();
            }
            _exit(0);
        }
        if (process < 0) {
            break;
        }
        processes_.push_back(process);
    }
}

Children::~Children() {
    for (const ProcessId process : processes_) {
        kill(process, SIGKILL);
    }
    for (const ProcessId process : processes_) {
        waitpid(process, nullptr, 0);
    }
}

} // namespace calmora
