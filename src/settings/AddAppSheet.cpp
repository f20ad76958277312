// SPDX-License-Identifier: MIT
#include "settings/AddAppSheet.h"

#include "settings/AppSettings.h"
#include "settings/NeverQuitList.h"
#include "support/Subscription.h"
#include "widgets/ContentArea.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Theme.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace calmora {
namespace {

constexpr Points sheetWidth{360};
constexpr Points sheetHeight{400};
constexpr int emptySymbolPoints = 30;
constexpr Points candidateSpacing{2};
/// Above the first row and below the last one.
constexpr Points listPadding{8};
constexpr Points candidateIconSide{24};
constexpr Points candidatePadding{5};

int candidateHeight() {
    const int text = QFontMetrics(Theme::font(TextStyle::body)).height();
    return std::max<int>(candidateIconSide, text + candidatePadding) + 2 * candidatePadding;
}

/// An application with a button that adds it, or a text that it has been added.
class CandidateRow final : public QWidget {
  public:
    CandidateRow(const WorkspaceApplication& app, std::function<void()> onAdd, QWidget* parent)
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

/// The applications that can be added to the never-quit list, one row each with a button to add
/// it. Rows are created when they scroll into view. Updates with the settings.
class CandidateList final : public QScrollArea {
  public:
    /// `settings` and the platform must outlive the list.
    CandidateList(AppSettings& settings, const Platform& platform,
                  std::vector<WorkspaceApplication> candidates, QWidget* parent = nullptr);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    /// Creates and places the rows in view.
    void realize();
    /// Updates the existing rows from the settings.
    void refresh();

    AppSettings& settings_;
    Platform platform_;
    std::vector<WorkspaceApplication> candidates_;
    int rowHeight_;
    /// One for each candidate; null until it comes into view.
    std::vector<CandidateRow*> rows_;
    Subscription change_;
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

QWidget* emptyState(QWidget* parent) {
    auto* state = new QWidget(parent);
    state->setObjectName("noCandidates");
    auto* layout = new QVBoxLayout(state);
    layout->setSpacing(metrics::rowSpacing);
    layout->addStretch(1);
    layout->addWidget(new SymbolView("app.dashed", emptySymbolPoints, ThemeColor::tertiary, state),
                      0, Qt::AlignHCenter);
    auto* text = new Paragraph(uiText("No running apps found"), TextStyle::body,
                               ThemeColor::secondary, state);
    text->setAlignment(Qt::AlignHCenter);
    layout->addWidget(text);
    layout->addStretch(1);
    return state;
}

} // namespace

AddAppSheet::AddAppSheet(AppSettings& settings, const Platform& platform, QWidget* window)
    : Sheet(window, QAccessible::Dialog) {
    setObjectName("addAppSheet");
    setWindowTitle(uiText("Add App to Never-Quit List"));
    setFixedSize(boundedByScreen(*window, {sheetWidth, sheetHeight}));

    auto* title = new Paragraph(windowTitle(), TextStyle::headline, ThemeColor::primary, this);
    auto* done = new Button(uiText("Done"), TextStyle::caption, this);
    done->setObjectName("done");
    done->setDefault(true);
    connect(done, &QAbstractButton::clicked, this, &QDialog::accept);
    auto* titleRow = new QHBoxLayout;
    titleRow->setContentsMargins(metrics::formMargin, metrics::rowInset, metrics::formMargin,
                                 metrics::rowInset);
    titleRow->setSpacing(metrics::rowSpacing);
    titleRow->addWidget(title, 1);
    titleRow->addWidget(done);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 0, 1, metrics::buttonRadius); // Round corners below.
    layout->setSpacing(0);
    layout->addLayout(titleRow);
    layout->addWidget(new Divider(0, this));
    std::vector<WorkspaceApplication> candidates = addAppCandidates(platform);
    if (candidates.empty()) {
        layout->addWidget(emptyState(this), 1);
    } else {
        layout->addWidget(new CandidateList(settings, platform, std::move(candidates), this), 1);
    }
}

} // namespace calmora
