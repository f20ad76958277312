// SPDX-License-Identifier: MIT
#include "platform/x11/backend/X11Backend.h"

#include "platform/qt/window/ManagedTransientWindows.h"
#include "platform/x11/backend/X11TransientWindows.h"

#include <QGuiApplication>

#include <utility>

namespace calmora {
namespace {

/// On Wayland the X server knows only the windows of X11 programs, and the keys that go to them.
bool isOnWayland() {
    return qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

/// Qt may use another platform than X11, as for tests and pictures. The one for pictures has the
/// native interface of X11, too, but no connection. A Wayland compositor gives the keyboard only to
/// windows that it manages, and tells the X server nothing of clicks elsewhere.
std::unique_ptr<TransientWindows> makeTransientWindows() {
    if (QGuiApplication::platformName() == "xcb" && !isOnWayland()) {
        return std::make_unique<X11TransientWindows>();
    }
    return std::make_unique<ManagedTransientWindows>();
}

} // namespace

X11Backend::X11Backend(EventPoll& events, std::unique_ptr<WindowSystem> compositor,
                       const MakeHotKeys& makeHotKeys, X11KeyboardLayout::ReadKeymap readKeymap)
    : x11Windows_(events), compositor_(std::move(compositor)),
      windows_({&x11Windows_, compositor_.get()}), keyboard_(events), hotKeys_(keyboard_),
      layout_(keyboard_, std::move(readKeymap)), settings_(events),
      desktopHotKeys_(makeHotKeys ? makeHotKeys(layout_) : nullptr),
      transientWindows_(makeTransientWindows()) {}

/// The window manager is not told of it and shows no busy pointer: the time alone lets the window
/// come to the front. Source: freedesktop Startup Notification, "_TIME".
std::string X11Backend::activationToken() {
    const auto time = transientWindows_->eventTime();
    return time ? "calmora-" + std::to_string(QCoreApplication::applicationPid()) + '-' +
                      std::to_string(++tokens_) + "_TIME" + std::to_string(*time)
                : std::string();
}

std::string X11Backend::windowManagerName() {
    return calmora::windowManagerName(keyboard_.connection());
}

std::string X11Backend::listLimitation() const {
    return isOnWayland() && !compositor_ ? "This desktop does not tell which applications run, "
                                           "so only X11 ones are listed."
                                         : "";
}

std::string X11Backend::autoQuitLimitation() const {
    return compositor_ && compositor_->endsSlowClients()
               ? "This desktop ends Wayland applications that take longer than 2 seconds to "
                 "answer, so only X11 applications are quit automatically."
               : "";
}

} // namespace calmora
