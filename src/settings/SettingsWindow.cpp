// SPDX-License-Identifier: MIT
#include "settings/SettingsWindow.h"

#include "platform/LocalizedStrings.h"
#include "settings/WindowKeys.h"

#include <QVBoxLayout>

namespace calmora {
SettingsWindow::SettingsWindow(const LocalizedStrings& strings)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName("settingsWindow");
    setWindowTitle(QString::fromStdString(strings.text("Calmora Settings")));
    answerMenuKeys(*this);
}

void SettingsWindow::setContent(QWidget* content) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(content);
}

} // namespace calmora
