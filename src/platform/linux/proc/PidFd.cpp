// SPDX-License-Identifier: MIT
#include "platform/linux/proc/PidFd.h"

#include <cerrno>

#include <poll.h>
#include <sys/resource.h>

// glibc 2.36 declares these without C linkage.
extern "C" {
#include <sys/pidfd.h>
}

namespace calmora {

std::optional<PidFd> PidFd::open(ProcessId process) {
    if (process < 1) {
        errno = ESRCH;
        return std::nullopt;
    }
    FileDescriptor descriptor(pidfd_open(process, 0));
    if (!descriptor) {
        return std::nullopt;
    }
    return PidFd(std::move(descriptor));
}

bool PidFd::hasExited() const {
    pollfd request{descriptor_.get(), POLLIN, 0};
    return poll(&request, 1, 0) == 1;
}

int PidFd::send(int signal) const {
    return pidfd_send_signal(descriptor_.get(), signal, nullptr, 0);
}

void raiseOpenFileLimit() {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = limit.rlim_max;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}

std::size_t openFileLimit() {
    rlimit limit{};
    constexpr std::size_t usual = 1024;
    return getrlimit(RLIMIT_NOFILE, &limit) == 0 ? limit.rlim_cur : usual;
}

} // namespace calmora
