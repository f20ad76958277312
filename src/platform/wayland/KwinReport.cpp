// SPDX-License-Identifier: MIT
#include "platform/wayland/KwinReport.h"

#include "platform/wayland/Json.h"

#include <utility>

namespace calmora {
namespace {

/// More windows than anybody opens.
constexpr std::size_t mostWindows = 4096;

WindowType typeNamed(std::string_view name, bool hasParent) {
    constexpr std::pair<std::string_view, WindowType> types[] = {
        {"normal", WindowType::normal},   {"dialog", WindowType::dialog},
        {"utility", WindowType::utility}, {"dock", WindowType::dock},
        {"desktop", WindowType::desktop},
    };
    for (const auto& [text, type] : types) {
        if (text == name) {
            return type == WindowType::normal && hasParent ? WindowType::dialog : type;
        }
    }
    return WindowType::other;
}

KwinWindow windowOf(const Json& row) {
    KwinWindow result;
    result.id = jsonText(row, "id");
    result.parent = jsonText(row, "parent");
    TopLevelWindow& window = result.window;
    window.className = jsonText(row, "className");
    window.kdeDesktopFile = jsonText(row, "desktopFile");
    window.type = typeNamed(jsonText(row, "type"), !result.parent.empty());
    window.skipsTaskbar = isJsonTrue(row, "skipsTaskbar");
    window.isModal = isJsonTrue(row, "isModal");
    window.isFullScreen = isJsonTrue(row, "isFullScreen");
    window.applicationId = window.className;
    if (!isJsonTrue(row, "isX11")) {
        result.process = jsonNumber<ProcessId>(row, "process");
        window.canBeAsked = isJsonTrue(row, "canBeAsked");
    } else if (const auto id = jsonNumber<std::uint32_t>(row, "x11Id"); id != 0) {
        window.x11Id = id;
    } else {
        window.mayBeX11 = true;
    }
    return result;
}

} // namespace

std::optional<KwinReport> parseKwinReport(std::string_view text) {
    const Json message = parseJson(text);
    const Json& rows = jsonMember(message, "windows");
    if (!rows.is_array()) {
        return std::nullopt;
    }
    KwinReport report;
    report.run = jsonNumber<std::uint64_t>(message, "run");
    report.hasAsked = isJsonTrue(message, "hasAsked");
    report.endsSlowClients = isJsonTrue(message, "endsSlowClients");
    report.active = jsonText(message, "active");
    for (const Json& row : rows) {
        KwinWindow window = windowOf(row);
        window.window.mustAnswerSoon = window.window.canBeAsked && report.endsSlowClients;
        if (!window.id.empty() && report.windows.size() < mostWindows) {
            report.windows.push_back(std::move(window));
        }
    }
    return report;
}

} // namespace calmora
