#pragma once

#include "platform/linux/xdg/BaseDirectories.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// The files that name default applications, most important first: mimeapps.list of the desktop
/// and of all, in the configuration and data folders.
[[nodiscard]] std::vector<std::filesystem::path>
mimeApplicationLists(const BaseDirectories& directories);

/// The first application that opens a MIME type and that `accept`s, by its id: the default ones,
/// then the added ones, folder by folder, then what `caches` (mimeinfo.cache files) offer. Empty
/// when there is none. A removed association hides the less important ones behind it.
[[nodiscard]] std::string defaultApplication(std::string_view mimeType,
                                             const std::vector<std::filesystem::path>& lists,
                                             const std::vector<std::filesystem::path>& caches,
                                             const std::function<bool(const std::string&)>& accept);

} // namespace calmora
