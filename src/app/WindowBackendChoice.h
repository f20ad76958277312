// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>

#include <functional>
#include <memory>

namespace calmora {

class DesktopEntryIndex;
class EventPoll;
class HotKeys;
class KeyboardLayout;
class ShellLink;
class WindowBackend;

/// The backend for the window system of this session. `installed` returns the installed
/// applications; it is called when windows are listed, not before. `makeHotKeys` gives the hot keys
/// of the desktop; null where programs grab keys. `shell` is the link to GNOME's shell, null
/// elsewhere. `mayAct` says whether a press of a hot key may act now. `events` and `shell` must
/// outlive the backend. Needs the QApplication.
[[nodiscard]] std::unique_ptr<WindowBackend>
makeWindowBackend(EventPoll& events, const QDBusConnection& sessionBus, ShellLink* shell,
                  std::function<const DesktopEntryIndex&()> installed,
                  const std::function<std::unique_ptr<HotKeys>(KeyboardLayout&)>& makeHotKeys,
                  std::function<bool()> mayAct);

} // namespace calmora
