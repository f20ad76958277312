// SPDX-License-Identifier: MIT
#pragma once

#include "support/Waiting.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/types.h>
#include <vector>

namespace calmora {

/// The children of a process, from the kernel.
inline std::vector<pid_t> childrenOf(pid_t process) {
    const std::string id = std::to_string(process);
    std::ifstream list("/proc/" + id + "/task/" + id + "/children");
    return {std::istream_iterator<pid_t>(list), {}};
}

/// The first descendant so many generations below a process; waits for it. -1 when none comes.
inline pid_t descendantOf(pid_t process, int generations) {
    for (; generations > 0 && process > 0; --generations) {
        std::vector<pid_t> children;
        waitFor([&] { return !(children = childrenOf(process)).empty(); });
        process = children.empty() ? -1 : children.front();
    }
    return process;
}

/// The command that runs another one in a bubblewrap sandbox as flatpak makes them: a root of its
/// own with .flatpak-info, which is kept in `home`; `programs` is /app/bin; a pid namespace of its
/// own. The command is the second generation below the process that is started.
inline std::vector<std::string> sandboxed(const std::filesystem::path& home,
                                          const std::filesystem::path& programs,
                                          const std::string& id, const std::string& instance,
                                          const std::vector<std::string>& command) {
    const std::string info = home / ("info-" + id + instance);
    std::ofstream(info) << "[Application]\nname=" << id
                        << "\n\n[Instance]\ninstance-id=" << instance << "\n";
    // clang-format off
    std::vector<std::string> words = {
        "bwrap", "--unshare-pid", "--proc", "/proc", "--dev", "/dev", "--ro-bind", "/usr", "/usr",
        "--symlink", "usr/lib", "/lib", "--symlink", "usr/lib64", "/lib64",
        "--symlink", "usr/bin", "/bin", "--ro-bind", "/tmp/.X11-unix", "/tmp/.X11-unix",
        "--ro-bind", programs, "/app/bin", "--ro-bind", info, "/.flatpak-info",
        // The sanitizers of an instrumented program would look for files outside.
        "--setenv", "ASAN_OPTIONS", "detect_leaks=0", "--unsetenv", "LSAN_OPTIONS"};
    // clang-format on
    words.insert(words.end(), command.begin(), command.end());
    return words;
}

} // namespace calmora
