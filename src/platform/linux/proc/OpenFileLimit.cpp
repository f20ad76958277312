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

} // namespace calmora
