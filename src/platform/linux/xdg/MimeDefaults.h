#pragma once

#include "platform/linux/xdg/BaseDirectories.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// The mimeapps.list files, most important first: per desktop and general, in configuration and
/// data folders.
[[nodiscard]] std::vector<std::filesystem::path>
mimeApplicationLists(const BaseDirectories& directories);

/// The id of the first application for a MIME type that `accept`s: default ones, then added ones,
/// folder by folder, then those in `caches` (mimeinfo.cache files). A removed association hides
/// less important ones. Empty if there is none.
[[nodiscard]] std::string defaultApplication(std::string_view mimeType,
                                             const std::vector<std::filesystem::path>& lists,
                                             const std::vector<std::filesystem::path>& caches,
                                             const std::function<bool(const std::string&)>& accept);

} // namespace calmora
