#include "ui/StackRow.h"

#include "ui/RowStack.h"
#include "widgets/Metrics.h"
#include "widgets/Theme.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <memory>

namespace calmora {
namespace {

class Interface final : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
};

/// Beside a row's focus ring.
constexpr int sideInset = 5;

/// The caller, Qt, owns the interface.
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

void drawRowFocus(QPainter& painter, const QWidget& row) {
    if (showsFocus(row)) {
        constexpr int ring = metrics::focusRing;
        painter.setOpacity(1);
        drawFocusRing(painter,
                      row.rect().adjusted(ring + sideInset, ring, -ring - sideInset, -ring),
                      metrics::rowRadius, Theme::of(row));
    }
}

void installRowAccessibility() {
    QAccessible::installFactory(interfaceFor);
}

} // namespace calmora
