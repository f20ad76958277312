#pragma once

#include <QAccessible>
#include <QWidget>

#include <optional>
#include <vector>

namespace calmora {

/// The control of a line that has the keyboard.
enum class RowColumn { check, quit };

/// A place in a row where the keyboard can be.
struct RowFocus {
    int line = 0;
    RowColumn column = RowColumn::check;
};

/// A row that a RowStack shows, moves and uses again for another entry.
class StackRow : public QWidget {
  public:
    using QWidget::QWidget;

    /// What screen readers call it.
    [[nodiscard]] virtual QAccessible::Role accessibleRole() const = 0;

    /// How far it is faded in, from 0 to 1.
    virtual void setPresence(double) {}

    /// The part of it that is in sight, in its own coordinates.
    virtual void setBand(int, int) {}

    /// Learns anew whether the pointer is over it, after rows have moved.
    virtual void updateHover() {}

    /// Where in it the keyboard is; absent when it is elsewhere.
    [[nodiscard]] virtual std::optional<RowFocus> focused() const { return {}; }

    /// Gives the keyboard to a place, or to the nearest one in that line that can take it.
    virtual void focusOn(RowFocus) {}

    /// The controls of a line that Tab visits, in order.
    [[nodiscard]] virtual std::vector<QWidget*> tabStops(int) { return {}; }
};

} // namespace calmora
