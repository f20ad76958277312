// SPDX-License-Identifier: MIT
#include "app/WindowBackendChoice.h"

#include "platform/wayland/CompositorWindows.h"
#include "platform/wayland/backend/CompositorKeymap.h"
#include "platform/wayland/backend/LayerShellBackend.h"
#include "platform/wayland/kwin/KwinWindowSystem.h"
#include "platform/x11/backend/X11Backend.h"

#include <utility>

namespace calmora {

std::unique_ptr<WindowBackend>
makeWindowBackend(EventPoll& events, const QDBusConnection& sessionBus,
                  std::function<const DesktopEntryIndex&()> installed,
                  const X11Backend::MakeHotKeys& makeHotKeys) {
    auto compositor = makeCompositorWindows(
        events, [installed = std::move(installed)](const std::string& applicationId) {
            return programsOfAppId(applicationId, installed());
        });
    if (!compositor) {
        compositor = makeKwinWindows(sessionBus);
    }
    return withLayerSurfaces(
        std::make_unique<X11Backend>(events, std::move(compositor), makeHotKeys, compositorKeymap));
}

} // namespace calmora
