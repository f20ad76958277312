// SPDX-License-Identifier: MIT
#include "ui/RowLayout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

namespace calmora {
namespace {

int between(int from, int to, double part) {
    return static_cast<int>(std::lround(from + (to - from) * part));
}

} // namespace

std::chrono::milliseconds duration(RowMotion motion) {
    // In the order of RowMotion.
    constexpr std::array<int, 4> milliseconds{0, 250, 200, 150};
    return std::chrono::milliseconds(milliseconds.at(static_cast<std::size_t>(motion)));
}

double eased(RowMotion motion, double t) {
    t = std::clamp(t, 0.0, 1.0);
    if (motion == RowMotion::count) {
        return 1 - std::pow(1 - t, 2);
    }
    return t < 0.5 ? 2 * t * t : 1 - 2 * std::pow(1 - t, 2);
}

std::vector<PlacedRow> placeRows(std::span<const RowSlot> slots) {
    std::vector<PlacedRow> rows;
    rows.reserve(slots.size());
    int top = 0;
    for (const RowSlot& slot : slots) {
        top += slot.spaceBefore;
        rows.push_back({slot.key, top, slot.height, 1});
        top += slot.height;
    }
    return rows;
}

RowRange rowsInSight(std::span<const PlacedRow> rows, int top, int bottom) {
    // Moving rows may be out of order, so every one is checked.
    RowRange range;
    bool found = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].bottom() > top && rows[i].top < bottom) {
            range.first = found ? range.first : i;
            range.end = i + 1;
            found = true;
        }
    }
    return range;
}

std::optional<PlacedRow> rowAt(std::span<const PlacedRow> rows, int y) {
    const auto row = std::ranges::find_if(rows, [y](const PlacedRow& candidate) {
        return y >= candidate.top && y < candidate.bottom();
    });
    return row != rows.end() ? std::optional(*row) : std::nullopt;
}

RowGlide::RowGlide(std::span<const PlacedRow> shown, std::vector<PlacedRow> target,
                   RowMotion motion)
    : target_(std::move(target)), motion_(motion) {
    if (motion == RowMotion::jump) {
        return;
    }
    std::map<RowKey, PlacedRow> known;
    for (const PlacedRow& row : shown) {
        known.emplace(row.key, row);
    }
    start_.reserve(target_.size());
    for (const PlacedRow& row : target_) {
        const auto found = known.find(row.key);
        start_.push_back(found != known.end() ? found->second
                                              : PlacedRow{row.key, row.top, row.height, 0});
    }
}

std::vector<PlacedRow> RowGlide::at(std::chrono::milliseconds elapsed) const {
    if (motion_ == RowMotion::jump || elapsed >= duration(motion_)) {
        return target_;
    }
    const double part = eased(motion_, static_cast<double>(elapsed.count()) /
                                           static_cast<double>(duration(motion_).count()));
    std::vector<PlacedRow> rows = target_;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].top = between(start_[i].top, target_[i].top, part);
        rows[i].height = between(start_[i].height, target_[i].height, part);
        rows[i].presence = start_[i].presence + (1 - start_[i].presence) * part;
    }
    return rows;
}

LineSpan lineSpan(const RowSlot& slot, int line) {
    const int first = slot.height - std::max(0, slot.lines - 1) * slot.memberHeight;
    return line == 0 ? LineSpan{0, first}
                     : LineSpan{first + (line - 1) * slot.memberHeight, slot.memberHeight};
}

std::optional<RowLine> nextLine(std::span<const RowSlot> slots, std::optional<RowLine> from,
                                int step) {
    if (slots.empty()) {
        return {};
    }
    const std::size_t last = slots.size() - 1;
    if (from && from->row <= last) {
        const int line = from->line + step;
        if (line >= 0 && line < slots[from->row].lines) {
            return RowLine{from->row, line};
        }
    }
    std::size_t row = step > 0 ? 0 : last;
    if (from) {
        if (step > 0 ? from->row >= last : from->row == 0) {
            return {};
        }
        row = std::min(from->row, last + 1) + (step > 0 ? 1 : std::size_t(-1));
    }
    while (slots[row].lines == 0) {
        if (step > 0 ? row == last : row == 0) {
            return {};
        }
        row += step > 0 ? 1 : std::size_t(-1);
    }
    return RowLine{row, step > 0 ? 0 : slots[row].lines - 1};
}

} // namespace calmora
