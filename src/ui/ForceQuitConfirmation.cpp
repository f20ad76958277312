// SPDX-License-Identifier: MIT
#include "ui/ForceQuitConfirmation.h"

#include "platform/Alerts.h"
#include "platform/LocalizedStrings.h"
#include "support/ShownName.h"

#include <cstdint>
#include <utility>

namespace calmora {
namespace {

bool confirm(Alerts& alerts, const LocalizedStrings& strings, Alert alert, const char* agree) {
    alert.style = AlertStyle::critical;
    alert.buttons = {{.title = strings.text(agree), .isDestructive = true},
                     {.title = strings.text("Cancel")}};
    return alerts.runModal(alert) == 0;
}

} // namespace

bool confirmForceQuitAll(Alerts& alerts, const LocalizedStrings& strings, std::size_t count) {
    Alert alert;
    alert.messageText =
        fillPlaceholders(strings.text("Do you want to force quit %lld selected apps?",
                                      static_cast<std::int64_t>(count)),
                         {static_cast<std::int64_t>(count)});
    alert.informativeText = strings.text("You will lose any unsaved changes in these apps.");
    return confirm(alerts, strings, std::move(alert), "Force Quit All");
}

bool confirmForceQuit(Alerts& alerts, const LocalizedStrings& strings, const std::string& appName,
                      const std::optional<Image>& icon) {
    Alert alert;
    alert.messageText = fillPlaceholders(strings.text("Do you want to force \"%@\" to quit?"),
                                         {shownName(appName)});
    alert.informativeText = strings.text("You will lose any unsaved changes.");
    alert.icon = icon;
    return confirm(alerts, strings, std::move(alert), "Force Quit");
}

} // namespace calmora
