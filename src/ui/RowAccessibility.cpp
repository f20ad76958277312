// SPDX-License-Identifier: MIT
#include "ui/RowAccessibility.h"

#include "ui/RowStack.h"

#include <QAccessibleWidget>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace calmora {
namespace {

/// A row, whose action joins those that every widget has.
class RowInterface final : public QAccessibleWidget {
  public:
    explicit RowInterface(StackRow& row)
        : QAccessibleWidget(&row, row.accessibleRole()), row_(row) {}

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (const auto action = row_.accessibleAction()) {
            names.prepend(action->name);
        }
        return names;
    }

    [[nodiscard]] QString localizedActionName(const QString& name) const override {
        const auto action = row_.accessibleAction();
        return action && action->name == name ? action->title
                                              : QAccessibleWidget::localizedActionName(name);
    }

    [[nodiscard]] QString localizedActionDescription(const QString& name) const override {
        const auto action = row_.accessibleAction();
        return action && action->name == name ? action->title
                                              : QAccessibleWidget::localizedActionDescription(name);
    }

    void doAction(const QString& name) override {
        const auto action = row_.accessibleAction();
        if (action && action->name == name) {
            action->run();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    StackRow& row_;
};

/// A list, whose widgets are reused and so in no order of their own.
class StackInterface final : public QAccessibleWidget {
  public:
    explicit StackInterface(RowStack& stack)
        : QAccessibleWidget(&stack, QAccessible::List), stack_(stack) {}

    [[nodiscard]] int childCount() const override {
        return static_cast<int>(stack_.rowWidgets().size());
    }

    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        const std::vector<StackRow*> rows = stack_.rowWidgets();
        const auto at = static_cast<std::size_t>(index);
        return index >= 0 && at < rows.size() ? QAccessible::queryAccessibleInterface(rows[at])
                                              : nullptr;
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const std::vector<StackRow*> rows = stack_.rowWidgets();
        const auto found = std::ranges::find(rows, child ? child->object() : nullptr);
        return found != rows.end() ? static_cast<int>(found - rows.begin()) : -1;
    }

  private:
    RowStack& stack_;
};

/// The caller, Qt, owns the interface.
QAccessibleInterface* interfaceFor(const QString&, QObject* object) {
    if (auto* row = dynamic_cast<StackRow*>(object)) {
        return std::make_unique<RowInterface>(*row).release();
    }
    if (auto* stack = dynamic_cast<RowStack*>(object)) {
        return std::make_unique<StackInterface>(*stack).release();
    }
    return nullptr;
}

} // namespace

void installRowAccessibility() {
    QAccessible::installFactory(interfaceFor);
}

} // namespace calmora
