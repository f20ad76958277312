#include "platform/linux/proc/OpenFileLimit.h"

#include <sys/resource.h>

namespace calmora {

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
