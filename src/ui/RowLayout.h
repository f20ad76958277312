// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <chrono>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// The positions of a list's rows and how they move. Rows have fixed heights, so a list of any
/// length is arithmetic; which of its rows exist as widgets is decided elsewhere.
/// All lengths are in device-independent pixels.
namespace calmora {

/// The kind of a row.
enum class RowKind : std::uint8_t {
    app,
    divider,
    sectionHeader,
    backgroundApp,
    backgroundGroup,
    emptyState,
};

/// Identifies a row across updates of the list.
struct RowKey {
    RowKind kind = RowKind::app;
    /// 0 for rows without a process.
    ProcessId pid = 0;

    friend auto operator<=>(const RowKey&, const RowKey&) = default;
};

/// One row as the list requests it.
struct RowSlot {
    RowKey key;
    /// Of the row itself.
    int height = 0;
    /// Space above the row.
    int spaceBefore = 0;
    /// Lines that the keyboard can reach: 0 for a divider, 1 for an application, 1 and the
    /// members for a group that is open.
    int lines = 1;
    /// The height of each line but the first, the members of an open group.
    int memberHeight = 0;

    friend bool operator==(const RowSlot&, const RowSlot&) = default;
};

/// One row with its position.
struct PlacedRow {
    RowKey key;
    int top = 0;
    int height = 0;
    /// 1 is fully there; less while a new row fades in.
    double presence = 1;

    [[nodiscard]] int bottom() const { return top + height; }

    friend bool operator==(const PlacedRow&, const PlacedRow&) = default;
};

/// How a list moves to its next arrangement.
enum class RowMotion {
    /// At once.
    jump,
    /// 0.25 s, ease in and out: rows close up after a quit.
    removal,
    /// 0.2 s, ease out: the number of rows changed otherwise.
    count,
    /// 0.15 s, ease in and out: a group opens or closes.
    expansion,
};

/// How long a motion takes; zero for a jump.
[[nodiscard]] std::chrono::milliseconds duration(RowMotion motion);

/// The part of the way that is covered after the part `t` of the time; both from 0 to 1.
[[nodiscard]] double eased(RowMotion motion, double t);

/// Puts the rows, no two of which have the same key, below each other.
[[nodiscard]] std::vector<PlacedRow> placeRows(std::span<const RowSlot> slots);

/// Indices of rows, from the first one to the one before the end.
struct RowRange {
    std::size_t first = 0;
    std::size_t end = 0;

    [[nodiscard]] bool contains(std::size_t index) const { return index >= first && index < end; }

    friend bool operator==(const RowRange&, const RowRange&) = default;
};

/// From the first to the last row that reaches into the band from `top` to `bottom`.
[[nodiscard]] RowRange rowsInSight(std::span<const PlacedRow> rows, int top, int bottom);

/// The row at a height; absent between rows and outside of them. Its top tells whether it moved.
[[nodiscard]] std::optional<PlacedRow> rowAt(std::span<const PlacedRow> rows, int y);

/// A list on its way from one arrangement to the next. Rows that stay move and resize, new rows
/// fade in at their final position, rows that left disappear at once.
class RowGlide {
  public:
    RowGlide() = default;

    /// Moves from the rows on screen to `target`.
    RowGlide(std::span<const PlacedRow> shown, std::vector<PlacedRow> target, RowMotion motion);

    /// The rows after `elapsed`, in the order of the target.
    [[nodiscard]] std::vector<PlacedRow> at(std::chrono::milliseconds elapsed) const;

    /// Where the rows are going.
    [[nodiscard]] const std::vector<PlacedRow>& target() const { return target_; }

  private:
    std::vector<PlacedRow> start_;
    std::vector<PlacedRow> target_;
    RowMotion motion_ = RowMotion::jump;
};

/// A line of the list: a row, and the line within it.
struct RowLine {
    std::size_t row = 0;
    int line = 0;

    friend bool operator==(const RowLine&, const RowLine&) = default;
};

/// The position of a line in its row: the header of a group, then its members.
struct LineSpan {
    int top = 0;
    int height = 0;

    friend bool operator==(const LineSpan&, const LineSpan&) = default;
};

[[nodiscard]] LineSpan lineSpan(const RowSlot& slot, int line);

/// The next line that the keyboard can reach, `step` (1 or -1) further; from absent the first or
/// the last one. Absent when there is none.
[[nodiscard]] std::optional<RowLine> nextLine(std::span<const RowSlot> slots,
                                              std::optional<RowLine> from, int step);

} // namespace calmora
