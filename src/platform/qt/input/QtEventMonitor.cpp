// SPDX-License-Identifier: MIT
#include "platform/qt/input/QtEventMonitor.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <utility>

namespace calmora {

namespace {

Qt::KeyboardModifiers modifierOfKey(int key) {
    switch (key) {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Meta:
        return Qt::MetaModifier;
    default:
        return Qt::NoModifier;
    }
}

/// The modifiers after an event, where the keyboard itself cannot be asked.
Qt::KeyboardModifiers modifiersAfter(const QInputEvent& event) {
    if (event.type() == QEvent::KeyPress) {
        return event.modifiers() | modifierOfKey(static_cast<const QKeyEvent&>(event).key());
    }
    if (event.type() == QEvent::KeyRelease) {
        return event.modifiers() & ~modifierOfKey(static_cast<const QKeyEvent&>(event).key());
    }
    return event.modifiers();
}

} // namespace

ModifierFlags modifierFlags(Qt::KeyboardModifiers modifiers) {
    ModifierFlags flags;
    const auto add = [&](Qt::KeyboardModifier modifier, std::uint32_t flag) {
        flags.mask |= modifiers.testFlag(modifier) ? flag : 0;
    };
    add(Qt::ShiftModifier, ModifierFlags::shift);
    add(Qt::ControlModifier, ModifierFlags::control);
    add(Qt::AltModifier, ModifierFlags::option);
    add(Qt::MetaModifier, ModifierFlags::command);
    return flags;
}

QtEventMonitor::QtEventMonitor(TransientWindows& windows)
    : windows_(windows), changed_([this](bool isListening) { setListening(isListening); }) {}

void QtEventMonitor::reread() {
    if (changed_.hasListeners()) {
        note(windows_.modifiers().value_or(last_));
    }
}

void QtEventMonitor::setListening(bool isListening) {
    if (isListening) {
        // What is already held down is no change.
        last_ = windows_.modifiers().value_or(modifierFlags(QGuiApplication::keyboardModifiers()));
        qGuiApp->installEventFilter(this);
    } else {
        qGuiApp->removeEventFilter(this);
    }
}

void QtEventMonitor::note(ModifierFlags flags) {
    if (std::exchange(last_, flags) != flags) {
        changed_.emit(flags);
    }
}

bool QtEventMonitor::eventFilter(QObject* watched, QEvent* event) {
    // Each event goes to its window first and then to one widget after the other.
    if (!watched->isWindowType()) {
        return false;
    }
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        note(windows_.modifiers().value_or(
            modifierFlags(modifiersAfter(static_cast<const QInputEvent&>(*event)))));
        break;
    case QEvent::FocusIn:
        reread();
        break;
    default:
        break;
    }
    return false;
}

} // namespace calmora
