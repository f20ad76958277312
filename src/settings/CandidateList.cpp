#include "settings/CandidateList.h"

#include "settings/AppSettings.h"
#include "settings/NeverQuitList.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Metrics.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QScrollBar>

#include <algorithm>
#include <functional>
#include <utility>

namespace calmora {
namespace {

constexpr int candidateSpacing = 2;
/// Above the first row and below the last one.
constexpr int listPadding = 8;
constexpr int candidateIconSide = 24;
constexpr int candidatePadding = 5;

int candidateHeight() {
    const int text = QFontMetrics(Theme::font(TextStyle::body)).height();
    return std::max(candidateIconSide, text + candidatePadding) + 2 * candidatePadding;
}

} // namespace

/// An application with a button that adds it, or a text that it has been added.
class CandidateList::Row final : public QWidget {
  public:
    Row(const WorkspaceApplication& app, std::function<void()> onAdd, QWidget* parent)
        : QWidget(parent),
          added_(new Label(uiText("Added"), TextStyle::caption, ThemeColor::secondary, this)),
          add_(new Button(uiText("Add"), TextStyle::caption, this)) {
        setObjectName("candidate");
        auto* name =
            new Label(app.localizedName ? displayName(*app.localizedName) : uiText("Unknown"),
                      TextStyle::body, ThemeColor::primary, this);
        name->setObjectName("appName");
        added_->setObjectName("added");
        added_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        add_->setObjectName("add");
        add_->setAccessibleDescription(name->text());
        connect(add_, &QAbstractButton::clicked, this, std::move(onAdd));

        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins(metrics::formMargin, 0, metrics::formMargin, 0);
        layout->setSpacing(metrics::rowSpacing);
        layout->addWidget(new AppIconView(app.icon, candidateIconSide, this));
        layout->addWidget(name, 1);
        layout->addWidget(added_);
        layout->addWidget(add_);
    }

    void setAdded(bool isAdded) {
        added_->setVisible(isAdded);
        add_->setVisible(!isAdded);
    }

    [[nodiscard]] QWidget* addButton() const { return add_; }

  private:
    Label* added_;
    Button* add_;
};

CandidateList::CandidateList(AppSettings& settings, const Platform& platform,
                             std::vector<WorkspaceApplication> candidates, QWidget* parent)
    : QScrollArea(parent), settings_(settings), platform_(platform),
      candidates_(std::move(candidates)), rowHeight_(candidateHeight()),
      rows_(candidates_.size(), nullptr) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    auto* stack = new QWidget;
    const int count = static_cast<int>(candidates_.size());
    stack->setMinimumHeight(count * (rowHeight_ + candidateSpacing) - candidateSpacing +
                            2 * listPadding);
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
    const int step = rowHeight_ + candidateSpacing;
    const int top = verticalScrollBar()->value();
    const int count = static_cast<int>(candidates_.size());
    // One more on each side, so that Tab can reach it.
    const int first = std::clamp((top - listPadding) / step - 1, 0, count);
    const int last = std::clamp((top + viewport()->height() - listPadding) / step + 2, 0, count);
    for (int index = first; index < last; ++index) {
        const auto at = static_cast<std::size_t>(index);
        Row*& row = rows_[at];
        if (!row) {
            const std::string identifier = candidates_[at].bundleIdentifier.value_or("");
            row = new Row(
                candidates_[at], [this, identifier] { settings_.addToNeverQuit(identifier); },
                widget());
            row->setAdded(NeverQuitList(settings_, platform_.workspace).contains(identifier));
            if (at > 0 && rows_[at - 1]) {
                setTabOrder(rows_[at - 1]->addButton(), row->addButton());
            }
            row->show();
        }
        row->setGeometry(0, listPadding + index * step, viewport()->width(), rowHeight_);
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
