#include "platform/linux/proc/PidFd.h"

#include <cerrno>
#include <csignal>

#include <poll.h>

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

} // namespace calmora
