// SPDX-License-Identifier: MIT
#include "widgets/ModalWindow.h"

#include <QAccessibleWidget>
#include <QWidget>

#include <memory>

namespace calmora {
namespace {

class ModalInterface final : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = true;
        return state;
    }
};

/// The caller, Qt, owns the interface.
QAccessibleInterface* interfaceFor(const QString&, QObject* object) {
    const auto* window = dynamic_cast<ModalWindow*>(object);
    return window ? std::make_unique<ModalInterface>(static_cast<QWidget*>(object),
                                                     window->accessibleRole())
                        .release()
                  : nullptr;
}

} // namespace

void ModalWindow::install() {
    QAccessible::installFactory(interfaceFor); // Qt keeps one of each.
}

} // namespace calmora
