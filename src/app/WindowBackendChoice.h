#pragma once

#include <functional>
#include <memory>

namespace calmora {

class DesktopEntryIndex;
class EventPoll;
class WindowBackend;

/// The backend for the window system of this session. `installed` returns the installed
/// applications; it is called when windows are listed, not before. `events` must outlive the
/// backend. Needs the QApplication.
[[nodiscard]] std::unique_ptr<WindowBackend>
makeWindowBackend(EventPoll& events, std::function<const DesktopEntryIndex&()> installed);

} // namespace calmora
