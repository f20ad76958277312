// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace calmora {

/// Move-only owner of a POSIX file descriptor; closes it on destruction.
class FileDescriptor {
  public:
    FileDescriptor() = default;

    /// Takes ownership of `descriptor`; a negative value means none.
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}

    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)) {}

    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            reset();
            descriptor_ = std::exchange(other.descriptor_, -1);
        }
        return *this;
    }

    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    ~FileDescriptor() { reset(); }

    /// The descriptor, without giving up ownership; negative if there is none.
    [[nodiscard]] int get() const { return descriptor_; }

    /// Whether a descriptor is owned.
    explicit operator bool() const { return descriptor_ >= 0; }

    /// Closes the descriptor, if any. Preserves errno.
    void reset() {
        if (descriptor_ >= 0) {
            const int saved = errno;
            ::close(std::exchange(descriptor_, -1));
            errno = saved;
        }
    }

  private:
    int descriptor_ = -1;
};

} // namespace calmora
