// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/TextFile.h"

#include "support/FileDescriptor.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace calmora {

namespace {

bool writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(descriptor, text.data(), text.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace

std::optional<std::string> readTextFile(const std::filesystem::path& path) {
    constexpr off_t most = 16 * 1024 * 1024;
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat info{};
    if (!file || fstat(file.get(), &info) != 0) {
        return std::nullopt;
    }
    if (!S_ISREG(info.st_mode) || info.st_size > most) {
        errno = S_ISDIR(info.st_mode) ? EISDIR : EINVAL;
        return std::nullopt;
    }
    std::string text(static_cast<std::size_t>(info.st_size), '\0');
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t count = read(file.get(), text.data() + done, text.size() - done);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        done += static_cast<std::size_t>(count);
    }
    text.resize(done);
    return text;
}

std::filesystem::path followedLinks(std::filesystem::path path) {
    constexpr int most = 40; // As the kernel: more is a loop.
    std::error_code error;
    for (int depth = 0; depth < most && std::filesystem::is_symlink(path, error); ++depth) {
        const std::filesystem::path target = std::filesystem::read_symlink(path, error);
        if (error) {
            break;
        }
        path = path.parent_path() / target;
    }
    return path;
}

bool replaceTextFile(const std::filesystem::path& path, const std::string& text) {
    const std::filesystem::path target = followedLinks(path);
    const std::filesystem::path folder = target.parent_path();
    std::string temporary = folder / ("." + target.filename().string() + ".XXXXXX");
    const FileDescriptor file(mkostemp(temporary.data(), O_CLOEXEC));
    if (!file) {
        return false;
    }
    struct stat old{};
    const bool keepsMode = stat(target.c_str(), &old) == 0 && S_ISREG(old.st_mode);
    constexpr mode_t permissions = 07777;
    const bool isWritten = writeAll(file.get(), text) &&
                           (!keepsMode || fchmod(file.get(), old.st_mode & permissions) == 0) &&
                           fsync(file.get()) == 0 &&
                           std::rename(temporary.c_str(), target.c_str()) == 0;
    if (!isWritten) {
        unlink(temporary.c_str());
        return false;
    }
    const FileDescriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened) {
        fsync(opened.get()); // The name is on disk, too; if not, the old file still is.
    }
    return true;
}

} // namespace calmora
