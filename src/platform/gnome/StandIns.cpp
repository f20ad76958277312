// SPDX-License-Identifier: MIT
#include "platform/gnome/StandIns.h"

#include "platform/linux/xdg/DesktopEntryIndex.h"

#include <algorithm>

namespace calmora {
namespace {

/// Above all numbers of the shell's windows.
constexpr std::uint64_t firstNumber = std::uint64_t{1} << 63;

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

std::string objectPath(const std::string& applicationId) {
    std::string path = '/' + applicationId;
    std::ranges::replace(path, '.', '/');
    std::ranges::replace(path, '-', '_');
    return path;
}

bool contains(const std::vector<std::string>& list, const std::string& text) {
    return std::ranges::find(list, text) != list.end();
}

} // namespace

std::vector<ShellWindow> standIns(std::span<const SocketClient> clients,
                                  const DesktopEntryIndex& index,
                                  std::span<const OwnedName> ownedNames) {
    std::vector<ShellWindow> result;
    for (const SocketClient& client : clients) {
        ShellWindow window{.id = firstNumber + static_cast<std::uint64_t>(client.process),
                           .process = client.process,
                           .isStandIn = true};
        bool isShown = false;
        for (const DesktopEntry& entry : index.entries()) {
            if (!entry.isVisible) {
                continue;
            }
            const auto owned = std::ranges::find_if(ownedNames, [&](const OwnedName& name) {
                return name.process == client.process && name.name == entry.id;
            });
            const bool ownsId = owned != ownedNames.end();
            const std::string program = lowerCase(entry.execKey);
            if (!ownsId && !contains(client.desktopIds, entry.id) &&
                (program.empty() || !contains(client.names, program))) {
                continue;
            }
            isShown = true;
            if (window.gtkBusName.empty() && ownsId) {
                window.gtkBusName = owned->owner;
                window.gtkObjectPath = objectPath(entry.id);
            }
        }
        if (isShown) {
            result.push_back(std::move(window));
        }
    }
    return result;
}

} // namespace calmora
