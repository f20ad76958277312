// SPDX-License-Identifier: MIT
#include "ui/RowStack.h"

#include "widgets/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

namespace calmora {
namespace {

/// Free space below the last row.
constexpr Points bottomPadding{4};

bool holdsFocus(const QWidget& widget) {
    const QWidget* focus = QApplication::focusWidget();
    return focus && (focus == &widget || widget.isAncestorOf(focus));
}

/// Beside a row's focus ring.
constexpr Points sideInset{5};

} // namespace

RowStack::RowStack(Callbacks callbacks, QWidget* parent)
    : QWidget(parent), callbacks_(std::move(callbacks)) {
    clock_.setStartValue(0.0);
    clock_.setEndValue(1.0);
    connect(&clock_, &QVariantAnimation::valueChanged, this, [this] { arrange(); });
    connect(&clock_, &QVariantAnimation::finished, this, [this] { arrange(); });
}

void RowStack::setRows(std::vector<RowSlot> slots, RowMotion motion) {
    std::set<RowKey> seen;
    std::erase_if(slots, [&](const RowSlot& slot) { return !seen.insert(slot.key).second; });
    if (slots == slots_) {
        bindAll();
        return;
    }
    // When the focused row leaves, its neighbour gets the focus.
    const auto focused = focusedLine();
    const bool keepsFocus = !focused || seen.contains(slots_[focused->row].key);
    slots_ = std::move(slots);
    if (!isVisible() || style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0) {
        motion = RowMotion::jump;
    }
    clock_.stop();
    glide_ = RowGlide(placed_, placeRows(slots_), motion);
    if (!keepsFocus) {
        window()->setFocus();
    }
    if (motion == RowMotion::jump) {
        arrange();
    } else {
        clock_.setDuration(static_cast<int>(duration(motion).count()));
        clock_.start();
        arrange();
    }
    bindAll();
    if (!keepsFocus && !slots_.empty()) {
        const std::size_t row = std::min(focused->row, slots_.size() - 1);
        const RowLine line{row, 0};
        if (slots_[row].lines > 0) {
            focusLine(line, RowColumn::check);
        } else if (const auto before = nextLine(slots_, line, -1)) {
            focusLine(*before, RowColumn::check);
        }
    }
}

void RowStack::setBand(int top, int bottom) {
    if (top != bandTop_ || bottom != bandBottom_) {
        bandTop_ = top;
        bandBottom_ = bottom;
        arrange();
    }
}

StackRow* RowStack::rowWidget(const RowKey& key) const {
    const auto found = live_.find(key);
    return found == live_.end() ? nullptr : found->second.get();
}

std::vector<StackRow*> RowStack::rowWidgets() const {
    std::vector<StackRow*> rows;
    for (const RowSlot& slot : slots_) {
        if (StackRow* row = rowWidget(slot.key)) {
            rows.push_back(row);
        }
    }
    return rows;
}

void RowStack::noteMove(const std::vector<PlacedRow>& before) {
    if (placed_ == before || !isVisible()) {
        return;
    }
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    const bool isOver = pointer.x() >= 0 && pointer.x() < width();
    if (isOver && rowAt(before, pointer.y()) != rowAt(placed_, pointer.y())) {
        callbacks_.movedUnderPointer();
    }
}

void RowStack::arrange() {
    const std::vector<PlacedRow> before = std::exchange(
        placed_,
        isMoving() ? glide_.at(std::chrono::milliseconds(clock_.currentTime())) : glide_.target());
    noteMove(before);
    const RowRange inSight = rowsInSight(placed_, bandTop_, bandBottom_);
    std::set<RowKey> wanted;
    for (std::size_t i = 0; i < placed_.size(); ++i) {
        const auto live = live_.find(placed_[i].key);
        if (inSight.contains(i) || (live != live_.end() && holdsFocus(*live->second))) {
            wanted.insert(placed_[i].key);
        }
    }
    std::vector<RowKey> unwanted;
    for (const auto& [key, row] : live_) {
        if (!wanted.contains(key)) {
            unwanted.push_back(key);
        }
    }
    for (const RowKey& key : unwanted) {
        putAway(key);
    }
    int bottom = 0;
    for (const PlacedRow& placed : placed_) {
        bottom = std::max(bottom, placed.bottom());
        if (wanted.contains(placed.key)) {
            StackRow& row = realize(placed.key);
            row.setGeometry(0, placed.top, width(), placed.height);
            row.setPresence(placed.presence);
            row.setBand(bandTop_ - placed.top, bandBottom_ - placed.top);
            row.show();
        }
    }
    const int height = placed_.empty() ? 0 : bottom + bottomPadding;
    if (height != this->height()) {
        resize(width(), height);
    }
    if (underMouse()) {
        updateHover();
    }
}

void RowStack::updateHover() {
    for (const auto& [key, row] : live_) {
        row->updateHover();
    }
}

bool RowStack::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter) {
        updateHover();
    }
    return QWidget::eventFilter(watched, event);
}

StackRow& RowStack::realize(const RowKey& key) {
    const auto found = live_.find(key);
    if (found != live_.end()) {
        return *found->second;
    }
    auto& spare = spare_[key.kind];
    std::unique_ptr<StackRow> row;
    if (spare.empty()) {
        row = callbacks_.make(key.kind);
        row->setParent(this);
    } else {
        row = std::move(spare.back());
        spare.pop_back();
    }
    StackRow& made = *row;
    made.installEventFilter(this);
    live_.emplace(key, std::move(row));
    callbacks_.bind(made, key);
    return made;
}

void RowStack::putAway(const RowKey& key) {
    auto node = live_.extract(key);
    node.mapped()->hide();
    spare_[key.kind].push_back(std::move(node.mapped()));
}

void RowStack::bindAll() {
    for (const auto& [key, row] : live_) {
        callbacks_.bind(*row, key);
    }
}

void RowStack::resizeEvent(QResizeEvent* event) {
    if (event->size().width() != event->oldSize().width()) {
        for (const auto& [key, row] : live_) {
            row->resize(width(), row->height());
        }
    }
}

std::optional<RowLine> RowStack::focusedLine() const {
    for (const auto& [key, row] : live_) {
        if (!holdsFocus(*row)) {
            continue;
        }
        const auto place = row->focused();
        const auto index = std::ranges::find(slots_, key, &RowSlot::key);
        if (place && index != slots_.end()) {
            return RowLine{static_cast<std::size_t>(index - slots_.begin()), place->line};
        }
    }
    return {};
}

std::optional<RowLine> RowStack::lineForKeyboard() const {
    if (const auto focused = focusedLine()) {
        return focused;
    }
    const RowRange inSight = rowsInSight(placed_, bandTop_, bandBottom_);
    if (lastFocused_) {
        const auto slot = std::ranges::find(slots_, *lastFocused_, &RowSlot::key);
        const auto row = static_cast<std::size_t>(slot - slots_.begin());
        if (slot != slots_.end() && inSight.contains(row)) {
            return RowLine{row, std::clamp(lastLine_, 0, std::max(0, slot->lines - 1))};
        }
    }
    for (std::size_t i = inSight.first; i < std::min(inSight.end, placed_.size()); ++i) {
        if (slots_[i].lines > 0 && placed_[i].top >= bandTop_) {
            return RowLine{i, 0};
        }
    }
    return {};
}

bool RowStack::moveFocus(int step) {
    const auto focused = focusedLine();
    RowColumn column = RowColumn::check;
    if (focused) {
        column = rowWidget(slots_[focused->row].key)->focused()->column;
    }
    const auto next = focused ? nextLine(slots_, focused, step) : lineForKeyboard();
    if (!next) {
        return false;
    }
    focusLine(*next, column);
    return true;
}

void RowStack::focusLine(RowLine line, RowColumn column) {
    const PlacedRow row = glide_.target()[line.row];
    const LineSpan span = lineSpan(slots_[line.row], line.line);
    if (callbacks_.reveal) {
        callbacks_.reveal(row.top + span.top, span.height);
    }
    if (StackRow* widget = rowWidget(row.key)) {
        widget->focusOn({line.line, column});
        lastFocused_ = row.key;
        lastLine_ = line.line;
    }
}

std::vector<QWidget*> RowStack::tabStops() const {
    const auto line = lineForKeyboard();
    StackRow* row = line ? rowWidget(slots_[line->row].key) : nullptr;
    return row ? row->tabStops(line->line) : std::vector<QWidget*>{};
}

void drawRowFocus(QPainter& painter, const QWidget& row) {
    if (showsFocus(row)) {
        const int ring = metrics::focusRing;
        painter.setOpacity(1);
        drawFocusRing(painter,
                      row.rect().adjusted(ring + sideInset, ring, -ring - sideInset, -ring),
                      metrics::rowRadius, Theme::of(row));
    }
}

} // namespace calmora
