// SPDX-License-Identifier: MIT
#include "app/WindowBackendChoice.h"

#include "platform/gnome/backend/GnomeBackend.h"
#include "platform/gnome/backend/ShellLink.h"
#include "platform/gnome/backend/ShellWindowSystem.h"
#include "platform/gnome/backend/WaylandClients.h"
#include "platform/wayland/CompositorWindows.h"
#include "platform/wayland/backend/CompositorKeymap.h"
#include "platform/wayland/backend/LayerShellBackend.h"
#include "platform/wayland/kwin/KwinWindowSystem.h"
#include "platform/x11/backend/X11Backend.h"

#include <utility>

namespace calmora {
namespace {

ShellWindowSystem::StandIns standInsFor(const ShellLink& shell, const QDBusConnection& sessionBus,
                                        std::function<const DesktopEntryIndex&()> installed) {
    return
        [clients =
             std::make_shared<WaylandClients>(sessionBus, shell.socket(), std::move(installed))](
            bool isAfresh) -> const std::vector<ShellWindow>& { return clients->read(isAfresh); };
}

} // namespace

std::unique_ptr<WindowBackend>
makeWindowBackend(EventPoll& events, const QDBusConnection& sessionBus, ShellLink* shell,
                  std::function<const DesktopEntryIndex&()> installed,
                  const X11Backend::MakeHotKeys& makeHotKeys, std::function<bool()> mayAct) {
    auto compositor = makeCompositorWindows(events, [installed](const std::string& applicationId) {
        return programsOfAppId(applicationId, installed());
    });
    if (!compositor) {
        compositor = shell ? makeShellWindows(*shell, standInsFor(*shell, sessionBus, installed))
                           : makeKwinWindows(sessionBus);
    }
    std::unique_ptr<WindowBackend> backend =
        std::make_unique<X11Backend>(events, std::move(compositor), makeHotKeys, compositorKeymap);
    return shell ? std::make_unique<GnomeBackend>(*shell, std::move(backend), std::move(mayAct))
                 : withLayerSurfaces(std::move(backend));
}

} // namespace calmora
