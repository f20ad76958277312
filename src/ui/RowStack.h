// SPDX-License-Identifier: MIT
#pragma once

#include "ui/RowLayout.h"
#include "widgets/Theme.h"

#include <QAccessible>
#include <QString>
#include <QVariantAnimation>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace calmora {

/// Heights of the rows of applications, and the space between two of them.
inline constexpr Points appRowHeight{44};
inline constexpr Points groupHeaderHeight{32};
inline constexpr Points appRowSpacing{2};

/// The control of a line that has the keyboard focus.
enum class RowColumn { check, quit };

/// A place in a row that can have the keyboard focus.
struct RowFocus {
    int line = 0;
    RowColumn column = RowColumn::check;
};

/// Something that can be done with a row as a whole.
struct RowAction {
    /// The same in every language.
    QString name;
    /// What the user reads or hears.
    QString title;
    std::function<void()> run;
};

/// A row that a RowStack shows, moves and reuses for other entries.
class StackRow : public QWidget {
  public:
    using QWidget::QWidget;

    /// The role that screen readers announce.
    [[nodiscard]] virtual QAccessible::Role accessibleRole() const = 0;

    /// What assistive technologies can do with the row beside what its controls do; absent for
    /// nothing.
    [[nodiscard]] virtual std::optional<RowAction> accessibleAction() const { return {}; }

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

/// A list of rows below each other. Only visible rows exist as widgets, which are reused for other
/// entries. Rows move as a RowMotion says. The widget is as high as its rows.
class RowStack final : public QWidget {
  public:
    struct Callbacks {
        /// Creates an empty row.
        std::function<std::unique_ptr<StackRow>(RowKind)> make;
        /// Fills a row with the values of its key; called whenever they may have changed.
        std::function<void(StackRow&, const RowKey&)> bind;
        /// Scrolls a span of the list into view; may be absent.
        std::function<void(int top, int height)> reveal;
        /// Something else has come under the pointer because rows moved, not the pointer.
        std::function<void()> movedUnderPointer;
    };

    RowStack(Callbacks callbacks, QWidget* parent);

    /// Shows other rows, or the same ones with other values. Of rows with one key the first is
    /// shown. The same rows as before leave a motion that is under way alone.
    void setRows(std::vector<RowSlot> slots, RowMotion motion);

    /// Sets the visible part, in the list's coordinates.
    void setBand(int top, int bottom);

    /// The widget of a row, while there is one; null otherwise.
    [[nodiscard]] StackRow* rowWidget(const RowKey& key) const;

    /// The widgets of all rows that have one, from top to bottom.
    [[nodiscard]] std::vector<StackRow*> rowWidgets() const;

    [[nodiscard]] bool isMoving() const { return clock_.state() == QAbstractAnimation::Running; }

    /// Moves the focus a line down (1) or up (-1), from outside to the first visible line.
    /// False when there is no line to move to.
    bool moveFocus(int step);

    /// Focuses a line, which is scrolled into view first.
    void focusLine(RowLine line, RowColumn column);

    /// The line with the focus; absent when it is outside the list.
    [[nodiscard]] std::optional<RowLine> focusedLine() const;

    /// The controls that Tab visits in the line that has, or would get, the focus.
    [[nodiscard]] std::vector<QWidget*> tabStops() const;

  protected:
    void resizeEvent(QResizeEvent* event) override;

    void leaveEvent(QEvent*) override { updateHover(); }

    /// A row that moved under the resting pointer gets no leave event; the next row that the
    /// pointer enters updates it.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void updateHover();
    /// Tells when rows that were at `before` have moved under the pointer.
    void noteMove(const std::vector<PlacedRow>& before);
    /// Creates, places and recycles widgets for the visible rows.
    void arrange();
    void bindAll();
    StackRow& realize(const RowKey& key);
    void putAway(const RowKey& key);
    [[nodiscard]] std::optional<RowLine> lineForKeyboard() const;

    Callbacks callbacks_;
    std::vector<RowSlot> slots_;
    RowGlide glide_;
    std::vector<PlacedRow> placed_;
    QVariantAnimation clock_;
    std::map<RowKey, std::unique_ptr<StackRow>> live_;
    std::map<RowKind, std::vector<std::unique_ptr<StackRow>>> spare_;
    int bandTop_ = 0;
    int bandBottom_ = 0;
    /// The row that had the focus last.
    std::optional<RowKey> lastFocused_;
    int lastLine_ = 0;
};

/// Draws the focus ring of a row that has the keyboard focus itself.
void drawRowFocus(QPainter& painter, const QWidget& row);

} // namespace calmora
