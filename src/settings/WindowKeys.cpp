// SPDX-License-Identifier: MIT
#include "settings/WindowKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QShortcut>
#include <QWidget>

namespace calmora {
namespace {

/// Closes a window at Escape where nothing within uses the key. A shortcut would also act when the
/// key has just closed the list of a picker.
class EscapeFilter final : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isEscape = event->type() == QEvent::KeyPress &&
                              static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        return isEscape ? static_cast<QWidget*>(watched)->close()
                        : QObject::eventFilter(watched, event);
    }
};

} // namespace

void answerMenuKeys(QWidget& window) {
    const auto answer = [&window](const QString& keys, auto action) {
        auto* shortcut = new QShortcut(QKeySequence(keys, QKeySequence::PortableText), &window);
        QObject::connect(shortcut, &QShortcut::activated, &window, action);
    };
    window.installEventFilter(new EscapeFilter(&window));
    for (const QString modifier : {"Meta+", "Ctrl+"}) {
        answer(modifier + "q", [] { QCoreApplication::quit(); });
        answer(modifier + "w", [&window] { window.close(); });
        if (window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint)) {
            answer(modifier + "m", [&window] { window.showMinimized(); });
        }
    }
}

} // namespace calmora
