// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellWindow.h"

namespace calmora {
namespace {

enum MetaWindowType : std::uint32_t {
    metaNormal = 0,
    metaDesktop = 1,
    metaDock = 2,
    metaDialog = 3,
    metaModalDialog = 4,
    metaUtility = 7,
};

WindowType typeOf(const ShellWindow& window) {
    switch (window.type) {
    case metaNormal:
        return window.parent != 0 ? WindowType::dialog : WindowType::normal;
    case metaDesktop:
        return WindowType::desktop;
    case metaDock:
        return WindowType::dock;
    case metaDialog:
    case metaModalDialog:
        return WindowType::dialog;
    case metaUtility:
        return WindowType::utility;
    default:
        return WindowType::other;
    }
}

} // namespace

TopLevelWindow topLevelWindow(const ShellWindow& window) {
    TopLevelWindow result;
    result.type = typeOf(window);
    result.isModal = window.type == metaModalDialog;
    result.isStandIn = window.isStandIn;
    result.isFullScreen = window.isFullScreen;
    result.skipsTaskbar = window.skipsTaskbar;
    result.applicationId = window.className;
    result.className = window.className;
    result.instance = window.instance;
    result.gtkApplicationId = window.gtkApplicationId;
    result.gtkBusName = window.gtkBusName;
    result.gtkObjectPath = window.gtkObjectPath;
    result.kdeDesktopFile = window.desktopId.empty() ? window.sandboxId : window.desktopId;
    if (!window.isX11) {
        result.canBeAsked = window.canClose && result.type != WindowType::dock &&
                            result.type != WindowType::desktop && result.type != WindowType::other;
    } else if (window.x11Id != 0) {
        result.x11Id = window.x11Id;
    } else {
        result.mayBeX11 = true;
    }
    return result;
}

} // namespace calmora
