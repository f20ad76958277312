// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/TextFile.h"

#include "support/FileDescriptor.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace calmora {

namespace {

constexpr std::string_view randomPart = "XXXXXX";

/// What the name of a temporary file for this one begins with.
std::string temporaryPrefix(const std::filesystem::path& file) {
    return "." + file.filename().string() + ".calmora-";
}

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
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat info{};
    if (!file || fstat(file.get(), &info) != 0) {
        return std::nullopt;
    }
    const auto size = static_cast<std::size_t>(info.st_size);
    if (!S_ISREG(info.st_mode) || size > largestTextFile) {
        errno = S_ISDIR(info.st_mode) ? EISDIR : S_ISREG(info.st_mode) ? EFBIG : EINVAL;
        return std::nullopt;
    }
    std::string text(size, '\0');
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

std::optional<std::filesystem::path> followedLinks(std::filesystem::path path) {
    constexpr int most = 40; // As the kernel: more is a loop.
    std::error_code error;
    for (int depth = 0; depth < most; ++depth) {
        const auto type = std::filesystem::symlink_status(path, error).type();
        if (type == std::filesystem::file_type::not_found) {
            return path;
        }
        if (!error && type != std::filesystem::file_type::symlink) {
            return path;
        }
        const auto target =
            error ? std::filesystem::path() : std::filesystem::read_symlink(path, error);
        if (error) {
            errno = error.value();
            return std::nullopt;
        }
        path = path.parent_path() / target;
    }
    errno = ELOOP;
    return std::nullopt;
}

bool replaceTextFile(const std::filesystem::path& path, const std::string& text) {
    const auto target = followedLinks(path);
    if (!target) {
        return false;
    }
    const std::filesystem::path folder = target->parent_path();
    std::string temporary = folder / temporaryPrefix(*target).append(randomPart);
    const FileDescriptor file(mkostemp(temporary.data(), O_CLOEXEC));
    if (!file) {
        return false;
    }
    flock(file.get(), LOCK_EX | LOCK_NB); // It is in use.
    struct stat old{};
    const bool keepsMode = stat(target->c_str(), &old) == 0 && S_ISREG(old.st_mode);
    constexpr mode_t permissions = 07777;
    const bool isWritten = writeAll(file.get(), text) &&
                           (!keepsMode || fchmod(file.get(), old.st_mode & permissions) == 0) &&
                           fsync(file.get()) == 0 &&
                           std::rename(temporary.c_str(), target->c_str()) == 0;
    if (!isWritten) {
        const int reason = errno;
        unlink(temporary.c_str());
        errno = reason;
        return false;
    }
    const FileDescriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened) {
        fsync(opened.get()); // The name is on disk, too; if not, the old file still is.
    }
    return true;
}

void removeLeftTemporaries(const std::filesystem::path& path) {
    const auto target = followedLinks(path);
    if (!target) {
        return;
    }
    const std::string prefix = temporaryPrefix(*target);
    std::error_code error;
    std::filesystem::directory_iterator entry(target->parent_path(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename();
        if (!name.starts_with(prefix) || name.size() != prefix.size() + randomPart.size()) {
            continue;
        }
        const FileDescriptor file(
            open(entry->path().c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
        if (file && flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
            unlink(entry->path().c_str());
        }
    }
}

} // namespace calmora
