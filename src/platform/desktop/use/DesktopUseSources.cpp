// SPDX-License-Identifier: MIT
#include "platform/desktop/use/DesktopUseSources.h"

#include "platform/desktop/use/BusUses.h"
#include "platform/desktop/use/MediaStreams.h"
#include "platform/desktop/use/UseReading.h"
#include "platform/linux/windows/WindowSystem.h"

#include <array>
#include <memory>
#include <optional>
#include <utility>

namespace calmora {
namespace {

constexpr std::chrono::milliseconds timeout{900};

/// A reading and the bus that it asks, which is closed with it.
struct OpenReading {
    OpenReading(const BusOnDemand& bus, UseReading::Handler handler)
        : systemBus(bus()), reading(std::move(handler), timeout) {}

    std::shared_ptr<const QDBusConnection> systemBus;
    UseReading reading;
};

void readWindows(UseReading& reading, WindowSystem& windows) {
    for (const TopLevelWindow& window : windows.windowsReadAfresh()) {
        if (window.isFullScreen && window.process) {
            reading.add(std::array{*window.process}, UseKind::isFullScreen);
        } else if (window.isFullScreen) {
            reading.add(window.candidates, UseKind::isFullScreen);
        }
    }
    if (const auto time = windows.sinceInput()) {
        reading.setSinceInput(*time);
    }
}

} // namespace

DesktopUseSources::DesktopUseSources(UseSurroundings surroundings)
    : surroundings_(std::move(surroundings)), owners_(surroundings_.reader, surroundings_.running) {
}

Subscription DesktopUseSources::read(std::function<void(const UseReport&)> handler) {
    const auto open = std::make_shared<std::optional<OpenReading>>();
    open->emplace(surroundings_.systemBus,
                  [weak = std::weak_ptr(open), handler = std::move(handler)](const auto& report) {
                      // The token may be kept for long: what has answered is closed now.
                      if (const auto answered = weak.lock()) {
                          answered->reset();
                      }
                      handler(report);
                  });
    UseReading& reading = (*open)->reading;
    const QDBusConnection& sessionBus = surroundings_.sessionBus;
    const auto windows = [this]() -> const std::vector<TopLevelWindow>& {
        return surroundings_.windows.windows();
    };
    readMediaPlayers(reading, sessionBus, owners_);
    readSessionInhibitors(reading, sessionBus, owners_, windows);
    readPowerInhibitors(reading, sessionBus, owners_);
    readIdleMonitor(reading, sessionBus);
    readLogindInhibitors(reading, *(*open)->systemBus);
    readStreams(reading, owners_, surroundings_.applicationName.c_str());
    readWindows(reading, surroundings_.windows);
    reading.haveAllBegun();
    return Subscription([open] {});
}

} // namespace calmora
