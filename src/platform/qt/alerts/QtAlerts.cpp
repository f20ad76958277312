// SPDX-License-Identifier: MIT
#include "platform/qt/alerts/QtAlerts.h"

#include "platform/qt/window/TransientFrame.h"
#include "widgets/AlertPanel.h"

#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace calmora {
namespace {

/// The screen of our focused window, else the pointer's.
const QScreen* currentScreen() {
    if (const QWindow* focused = QGuiApplication::focusWindow()) {
        return focused->screen();
    }
    // The X server of a Wayland compositor knows only where the pointer was above its windows.
    const bool knowsPointer =
        QGuiApplication::platformName() != "xcb" || !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    const QScreen* underPointer =
        knowsPointer ? QGuiApplication::screenAt(QCursor::pos()) : nullptr;
    return underPointer ? underPointer : QGuiApplication::primaryScreen();
}

QRect centred(QSize size, const QRect& area) {
    QRect rect({}, size.boundedTo(area.size()));
    rect.moveCenter(area.center());
    return rect;
}

} // namespace

QtAlerts::QtAlerts(TransientWindows& windows, AlertSession& session, Image ownIcon)
    : windows_(windows), session_(session), ownIcon_(std::move(ownIcon)) {}

std::size_t QtAlerts::runModal(const Alert& alert) {
    std::size_t answer = alert.buttons.empty() ? 0 : alert.buttons.size() - 1;
    const QScreen* screen = currentScreen();
    if (!screen || alert.buttons.empty()) {
        return answer;
    }
    const Subscription session = session_.begin();
    QEventLoop loop;

    TransientFrame frame(windows_, QAccessible::AlertMessage);
    frame.setWindowTitle("Calmora");
    frame.setAccessibleName(alertText(alert.messageText));
    frame.setAccessibleDescription(alertText(alert.informativeText));
    frame.setWindowModality(Qt::ApplicationModal);
    auto panel =
        std::make_unique<AlertPanel>(alert, alert.icon.value_or(ownIcon_), [&](std::size_t index) {
            answer = index;
            loop.quit();
        });
    AlertPanel& shown = *panel;
    frame.setBody(std::move(panel));
    frame.setOnEscape([&] { loop.quit(); });
    frame.ensurePolished();
    frame.showAt(centred(shown.fitWidth() + QSize(2, 2), screen->availableGeometry()));
    shown.focusDefaultButton();

    const auto focus = windows_.grabFocus(
        *frame.windowHandle(), [] { return false; }, [&](Leaving) { frame.raise(); });
    // No window manager focuses this window at a click.
    frame.setOnPress([&] { focus->renew(); });
    loop.exec();
    return answer;
}

} // namespace calmora
