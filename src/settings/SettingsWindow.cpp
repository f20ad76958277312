#include "settings/SettingsWindow.h"

#include "platform/LocalizedStrings.h"
#include "settings/WindowKeys.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace calmora {
SettingsWindow::SettingsWindow(const LocalizedStrings& strings)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName("settingsWindow");
    setWindowTitle(QString::fromStdString(strings.text("Calmora Settings")));
    answerMenuKeys(*this, strings);
}

void SettingsWindow::setContent(QWidget* content) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(content);
}

void SettingsWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace calmora
