// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace calmora {

/// The size, in bytes, of the largest file that readTextFile() reads.
inline constexpr std::size_t largestTextFile = std::size_t{16} * 1024 * 1024;

/// The content of a plain file of at most 16 MiB. Absent with errno set if it does not exist, is no
/// plain file or cannot be read; never blocks on a pipe.
[[nodiscard]] std::optional<std::string> readTextFile(const std::filesystem::path& path);

/// The path with symbolic links followed, even if the file does not exist. Absent with errno set if
/// that cannot be told, which may be for the moment only.
[[nodiscard]] std::optional<std::filesystem::path> followedLinks(std::filesystem::path path);

/// Replaces a file atomically (temporary file, sync, rename), through symbolic links. Keeps its
/// permissions; a new file is readable by its owner only. Returns false on failure with errno set,
/// with the old file unchanged and no temporary file left.
bool replaceTextFile(const std::filesystem::path& path, const std::string& text);

/// Removes the temporary files of replaceTextFile() for this file that killed processes left; those
/// in use stay.
void removeLeftTemporaries(const std::filesystem::path& path);

} // namespace calmora
