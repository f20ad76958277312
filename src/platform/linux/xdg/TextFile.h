// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace calmora {

/// The content of a plain file of at most 16 MiB. Absent with errno set if it does not exist, is no
/// plain file or cannot be read; never blocks on a pipe.
[[nodiscard]] std::optional<std::string> readTextFile(const std::filesystem::path& path);

/// The path with symbolic links followed, even if the file does not exist.
[[nodiscard]] std::filesystem::path followedLinks(std::filesystem::path path);

/// Replaces a file atomically (temporary file, sync, rename), through symbolic links. Keeps its
/// permissions; a new file is readable by its owner only. Returns false on failure, with the old
/// file unchanged and no temporary file left.
bool replaceTextFile(const std::filesystem::path& path, const std::string& text);

} // namespace calmora
