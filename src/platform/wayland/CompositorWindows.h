// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/AppIdPrograms.h"

#include <memory>

namespace calmora {

class EventPoll;
class WindowSystem;

/// The windows that the compositor of the environment's Wayland session tells of; null where there
/// is none or it tells nothing. sway's socket is preferred, because it tells the processes as well.
/// `programs` is asked whenever windows are read elsewhere, never by this call. `events` must
/// outlive the windows. Waits a few seconds at most.
[[nodiscard]] std::unique_ptr<WindowSystem> makeCompositorWindows(EventPoll& events,
                                                                  ProgramNames programs);

} // namespace calmora
