#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace calmora {

/// The whole content of a plain file of at most 16 MiB. Absent, with errno set, when it does not
/// exist, is no plain file or cannot be read; never blocks on a pipe.
[[nodiscard]] std::optional<std::string> readTextFile(const std::filesystem::path& path);

/// The file that a path means once symbolic links are followed, also when it does not exist.
[[nodiscard]] std::filesystem::path followedLinks(std::filesystem::path path);

/// Replaces a file as a whole or not at all: written beside it, synced, renamed. Keeps its
/// permissions; a new file is its owner's alone. Writes through symbolic links. False, with the
/// old file untouched and nothing left beside it, when that fails.
bool replaceTextFile(const std::filesystem::path& path, const std::string& text);

} // namespace calmora
