#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// The desktop ids that an application's systemd unit may mean, most likely first:
/// `app[-<launcher>]-<id>-<random>.scope`, `app[-<launcher>]-<id>[@<random>].service`. Source:
/// systemd "Desktop Environment Integration".
[[nodiscard]] std::vector<std::string> desktopIdsOfCgroup(std::string_view cgroup);

/// The desktop id of a control group's snap, `<snap>_<application>`; absent for others.
[[nodiscard]] std::optional<std::string> snapOfCgroup(std::string_view cgroup);

} // namespace calmora
