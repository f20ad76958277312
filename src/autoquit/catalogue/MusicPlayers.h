#pragma once

#include <string_view>

namespace calmora {

/// Whether the setting neverQuitMusicApps is about this application: one of the catalogue's list
/// of music players, or a desktop id of a Linux one. Letter case counts.
[[nodiscard]] bool isMusicPlayer(std::string_view identifier);

} // namespace calmora
