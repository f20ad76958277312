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

} // namespace

std::vector<ShellWindow> standIns(std::span<const SocketClient> clients,
                                  const DesktopEntryIndex& index, const OwnedName& ownedName) {
    std::vector<ShellWindow> result;
    for (const SocketClient& client : clients) {
        ShellWindow window{.id = firstNumber + static_cast<std::uint64_t>(client.process),
                           .process = client.process,
                           .isStandIn = true};
        bool isShown = false;
        for (const DesktopEntry& entry : index.entries()) {
            const std::string program = lowerCase(entry.execKey);
            if (!entry.isVisible || program.empty() ||
                std::ranges::find(client.names, program) == client.names.end()) {
                continue;
            }
            isShown = true;
            if (window.gtkBusName.empty() && entry.id.find('.') != std::string::npos) {
                window.gtkBusName = ownedName(entry.id, client.process);
                window.gtkObjectPath = window.gtkBusName.empty() ? "" : objectPath(entry.id);
            }
        }
        if (isShown) {
            result.push_back(std::move(window));
        }
    }
    return result;
}

} // namespace calmora
