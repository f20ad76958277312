#include "app/WindowBackendChoice.h"

#include "platform/wayland/CompositorWindows.h"
#include "platform/wayland/backend/LayerShellBackend.h"
#include "platform/x11/backend/X11Backend.h"

namespace calmora {

std::unique_ptr<WindowBackend> makeWindowBackend(EventPoll& events) {
    return withLayerSurfaces(std::make_unique<X11Backend>(events, makeCompositorWindows(events)));
}

} // namespace calmora
