// SPDX-License-Identifier: MIT
#include "platform/wayland/AppIdPrograms.h"

#include "platform/linux/xdg/DesktopEntryIndex.h"

#include <algorithm>

namespace calmora {
namespace {

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

} // namespace

std::vector<std::string> programsOfAppId(std::string_view applicationId,
                                         const DesktopEntryIndex& index) {
    const std::string id = lowerCase(std::string(applicationId));
    std::vector<std::string> programs{id, id.substr(id.rfind('.') + 1)};
    for (const DesktopEntry& entry : index.entries()) {
        const std::string entryId = lowerCase(entry.id);
        if (entryId == id || entryId.ends_with('.' + id) || lowerCase(entry.startupWmClass) == id) {
            programs.push_back(lowerCase(entry.execKey));
        }
    }
    std::erase(programs, "");
    return programs;
}

} // namespace calmora
