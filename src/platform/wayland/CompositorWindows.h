#pragma once

#include <memory>

namespace calmora {

class EventPoll;
class WindowSystem;

/// The windows that the compositor of the environment's Wayland session tells of; null where there
/// is none or it tells nothing. `events` must outlive them. Waits a second at most.
[[nodiscard]] std::unique_ptr<WindowSystem> makeCompositorWindows(EventPoll& events);

} // namespace calmora
