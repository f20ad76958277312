// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace calmora {

/// A file in the folder of the program's own libraries and helper programs.
/// Source: the install folder of CMakeLists.txt, seen from the running program.
[[nodiscard]] std::filesystem::path ownFile(const std::string& name);

/// One of the program's own libraries that are loaded when first needed: "calmora_" and `name`.
[[nodiscard]] std::filesystem::path loadedLibrary(const char* name);

/// The address of a function of a library, which then stays loaded: its threads may still run at
/// the end. Null when the library, one that it needs, or the function is missing.
[[nodiscard]] void* addressIn(const std::filesystem::path& library, const char* function);

/// The same with its type.
template <typename Function>
[[nodiscard]] Function* functionIn(const std::filesystem::path& library, const char* name) {
    return reinterpret_cast<Function*>(addressIn(library, name));
}

} // namespace calmora
