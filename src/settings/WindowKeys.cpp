// SPDX-License-Identifier: MIT
#include "settings/WindowKeys.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QShortcut>
#include <QWidget>

namespace calmora {

void answerMenuKeys(QWidget& window) {
    const auto answer = [&window](const QString& keys, auto action) {
        auto* shortcut = new QShortcut(QKeySequence(keys, QKeySequence::PortableText), &window);
        QObject::connect(shortcut, &QShortcut::activated, &window, action);
    };
    answer("Escape", [&window] { window.close(); });
    for (const QString modifier : {"Meta+", "Ctrl+"}) {
        answer(modifier + "q", [] { QCoreApplication::quit(); });
        answer(modifier + "w", [&window] { window.close(); });
        if (window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint)) {
            answer(modifier + "m", [&window] { window.showMinimized(); });
        }
    }
}

} // namespace calmora
