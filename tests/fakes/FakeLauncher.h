// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Launcher.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace calmora {

/// A launcher that notes what it starts.
struct FakeLauncher final : Launcher {
    bool canLaunch(const std::string& desktopId) override {
        return std::ranges::find(unavailable, desktopId) == unavailable.end();
    }

    bool launch(const std::string& desktopId) override {
        launched.push_back(desktopId);
        return canLaunch(desktopId);
    }

    std::vector<std::string> launched;
    std::vector<std::string> unavailable;
};

} // namespace calmora
