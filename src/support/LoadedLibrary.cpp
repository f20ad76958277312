// SPDX-License-Identifier: MIT
#include "support/LoadedLibrary.h"

#include <dlfcn.h>
#include <system_error>

namespace calmora {

std::filesystem::path ownFile(const std::string& name) {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return program.parent_path() / CALMORA_LIBRARIES / name;
}

std::filesystem::path loadedLibrary(const char* name) {
    return ownFile("calmora_" + std::string(name) + ".so");
}

void* addressIn(const std::filesystem::path& library, const char* function) {
    void* handle = ::dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    return handle ? ::dlsym(handle, function) : nullptr;
}

} // namespace calmora
