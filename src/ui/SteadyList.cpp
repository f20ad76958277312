// SPDX-License-Identifier: MIT
#include "ui/SteadyList.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace calmora {

std::vector<AppInfo> inShownOrder(std::vector<AppInfo> sorted, std::span<const ProcessId> shown) {
    std::unordered_map<ProcessId, std::size_t> places;
    places.reserve(shown.size());
    for (const ProcessId pid : shown) {
        places.emplace(pid, places.size());
    }
    std::ranges::stable_sort(sorted, {}, [&](const AppInfo& app) {
        const auto place = places.find(app.pid);
        return place != places.end() ? place->second : places.size();
    });
    return sorted;
}

} // namespace calmora
