#include "settings/CandidateList.h"

#include "settings/AppSettings.h"
#include "settings/CandidateRow.h"
#include "settings/NeverQuitList.h"

#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

constexpr int spacing = 2;
constexpr int padding = 8;

} // namespace

CandidateList::CandidateList(AppSettings& settings, const Platform& platform,
                             std::vector<WorkspaceApplication> candidates, QWidget* parent)
    : QScrollArea(parent), settings_(settings), platform_(platform),
      candidates_(std::move(candidates)), rowHeight_(CandidateRow::rowHeight()),
      rows_(candidates_.size(), nullptr) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    auto* stack = new QWidget;
    const int count = static_cast<int>(candidates_.size());
    stack->setMinimumHeight(count * (rowHeight_ + spacing) - spacing + 2 * padding);
    setWidget(stack);
    change_ = settings_.neverQuitApps.observe([this] { refresh(); });
}

void CandidateList::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    realize();
}

void CandidateList::scrollContentsBy(int dx, int dy) {
    QScrollArea::scrollContentsBy(dx, dy);
    realize();
}

void CandidateList::realize() {
    const int step = rowHeight_ + spacing;
    const int top = verticalScrollBar()->value();
    const int count = static_cast<int>(candidates_.size());
    // One more on each side, so that Tab can reach it.
    const int first = std::clamp((top - padding) / step - 1, 0, count);
    const int last = std::clamp((top + viewport()->height() - padding) / step + 2, 0, count);
    for (int index = first; index < last; ++index) {
        const auto at = static_cast<std::size_t>(index);
        CandidateRow*& row = rows_[at];
        if (!row) {
            const std::string identifier = candidates_[at].bundleIdentifier.value_or("");
            row = new CandidateRow(
                candidates_[at], [this, identifier] { settings_.addToNeverQuit(identifier); },
                widget());
            row->setAdded(NeverQuitList(settings_, platform_.workspace).contains(identifier));
            if (at > 0 && rows_[at - 1]) {
                setTabOrder(rows_[at - 1]->addButton(), row->addButton());
            }
            row->show();
        }
        row->setGeometry(0, padding + index * step, viewport()->width(), rowHeight_);
    }
}

void CandidateList::refresh() {
    const NeverQuitList list(settings_, platform_.workspace);
    for (std::size_t at = 0; at < rows_.size(); ++at) {
        if (rows_[at]) {
            rows_[at]->setAdded(list.contains(candidates_[at].bundleIdentifier.value_or("")));
        }
    }
}

} // namespace calmora
