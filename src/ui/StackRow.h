#pragma once

#include <QAccessible>
#include <QWidget>

#include <optional>
#include <vector>

namespace calmora {

/// The control of a line that has the keyboard focus.
enum class RowColumn { check, quit };

/// A place in a row that can have the keyboard focus.
struct RowFocus {
    int line = 0;
    RowColumn column = RowColumn::check;
};

/// A row that a RowStack shows, moves and reuses for other entries.
class StackRow : public QWidget {
  public:
    using QWidget::QWidget;

    /// The role that screen readers announce.
    [[nodiscard]] virtual QAccessible::Role accessibleRole() const = 0;

    /// Sets how far the row has faded in, from 0 to 1.
    virtual void setPresence(double) {}

    /// Sets the visible part of the row, in its own coordinates.
    virtual void setBand(int, int) {}

    /// Checks again whether the pointer is over the row, after rows have moved.
    virtual void updateHover() {}

    /// The place that has the focus; absent when it is elsewhere.
    [[nodiscard]] virtual std::optional<RowFocus> focused() const { return {}; }

    /// Focuses a place, or the nearest one in that line that can take the focus.
    virtual void focusOn(RowFocus) {}

    /// The controls of a line that Tab visits, in order.
    [[nodiscard]] virtual std::vector<QWidget*> tabStops(int) { return {}; }
};

/// Draws the focus ring of a row that has the keyboard focus itself.
void drawRowFocus(QPainter& painter, const QWidget& row);

/// Tells screen readers the roles of a list's rows: list items, headings and groups. May be called
/// again.
void installRowAccessibility();

} // namespace calmora
