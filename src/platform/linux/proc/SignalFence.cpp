#include "platform/linux/proc/SignalFence.h"

#include <unistd.h>

namespace calmora {

namespace {

bool isUsOrOurAncestor(const ProcessReader& reader, ProcessId process) {
    // Bounded, since the tree may change while it is climbed.
    constexpr int deepest = 64;
    ProcessId climber = getpid();
    for (int depth = 0; depth < deepest && climber > 0; ++depth) {
        if (climber == process) {
            return true;
        }
        const auto stat = reader.stat(climber);
        climber = stat ? stat->parent : 0;
    }
    return false;
}

} // namespace

bool isBehindBasicFence(const ProcessReader& reader, ProcessId process) {
    constexpr ProcessId kernelThreadStarter = 2;
    if (process <= kernelThreadStarter) {
        return true;
    }
    const auto stat = reader.stat(process);
    const auto status = reader.status(process);
    const std::uint32_t user = getuid();
    return !stat || !status || stat->isKernelThread || status->realUser != user ||
           isUsOrOurAncestor(reader, process);
}

} // namespace calmora
