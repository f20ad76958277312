#include "support/FileDescriptor.h"

#include <cerrno>

namespace calmora {

void FileDescriptor::reset() {
    if (descriptor_ >= 0) {
        const int saved = errno;
        ::close(std::exchange(descriptor_, -1));
        errno = saved;
    }
}

} // namespace calmora
