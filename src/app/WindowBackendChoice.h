#pragma once

#include <memory>

namespace calmora {

class EventPoll;
class WindowBackend;

/// The backend for the window system of this session. `events` must outlive it. Needs the
/// QApplication.
[[nodiscard]] std::unique_ptr<WindowBackend> makeWindowBackend(EventPoll& events);

} // namespace calmora
