#include "ui/RowAccessibility.h"

#include "ui/RowStack.h"
#include "ui/StackRow.h"

#include <QAccessibleWidget>

#include <memory>

namespace calmora {
namespace {

class Interface final : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
};

/// Qt takes the interface over.
QAccessibleInterface* interfaceFor(const QString&, QObject* object) {
    if (auto* row = dynamic_cast<StackRow*>(object)) {
        return std::make_unique<Interface>(row, row->accessibleRole()).release();
    }
    if (auto* stack = dynamic_cast<RowStack*>(object)) {
        return std::make_unique<Interface>(stack, QAccessible::List).release();
    }
    return nullptr;
}

} // namespace

void installRowAccessibility() {
    QAccessible::installFactory(interfaceFor);
}

} // namespace calmora
