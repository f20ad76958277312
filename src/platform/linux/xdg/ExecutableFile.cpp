#include "platform/linux/xdg/ExecutableFile.h"

#include "support/FileDescriptor.h"
#include "support/TextHelpers.h"

#include <array>
#include <climits>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace calmora {

std::string resolvedFile(const std::string& path) {
    std::array<char, PATH_MAX> resolved{};
    struct stat info{};
    if (!path.starts_with('/') || ::realpath(path.c_str(), resolved.data()) == nullptr ||
        ::stat(resolved.data(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return {};
    }
    return resolved.data();
}

std::string scriptInterpreterOf(std::string_view firstBytes) {
    std::string_view line = firstBytes.substr(0, firstBytes.find('\n'));
    if (!line.starts_with("#!")) {
        return {};
    }
    line.remove_prefix(2);
    while (!line.empty()) {
        const std::size_t start = line.find_first_not_of(" \t");
        if (start == std::string_view::npos) {
            break;
        }
        line.remove_prefix(start);
        const std::string_view word = line.substr(0, line.find_first_of(" \t"));
        line.remove_prefix(word.size());
        const std::string_view name = baseName(word);
        const bool isOfEnv =
            name == "env" || name.starts_with('-') || name.find('=') != std::string_view::npos;
        if (!isOfEnv) {
            return std::string(name);
        }
    }
    return {};
}

std::string scriptInterpreter(const std::string& path) {
    // Opening must not block, whatever the file is.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat info{};
    if (!file || ::fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return {};
    }
    std::array<char, 256> bytes{}; // As much as the kernel looks at.
    const ssize_t count = ::read(file.get(), bytes.data(), bytes.size());
    return count > 0 ? scriptInterpreterOf({bytes.data(), static_cast<std::size_t>(count)})
                     : std::string();
}

} // namespace calmora
