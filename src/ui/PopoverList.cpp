// SPDX-License-Identifier: MIT
#include "ui/PopoverList.h"

#include "platform/Clock.h"
#include "ui/AppListViewModel.h"
#include "ui/AppRowView.h"
#include "ui/BackgroundGroupRowView.h"
#include "ui/RowStack.h"
#include "widgets/DisplayText.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <iterator>
#include <utility>

namespace calmora {
namespace {

constexpr Points listPadding{4};
constexpr Points dividerSpace{4};
constexpr Points highestList{400};
constexpr Points headerSpaceBelow{2};
constexpr Points emptyPadding{40};
constexpr Points emptySpacing{8};
constexpr int emptySymbolPoints = 17;

QFont headerFont() {
    return Theme::font(TextStyle::caption2, QFont::Medium);
}

/// The line between the applications and the background section.
class DividerRow final : public StackRow {
  public:
    static constexpr int rowHeight = 1;

    DividerRow() { setObjectName("backgroundDivider"); }

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Separator;
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect().adjusted(metrics::inset, 0, -metrics::inset, 0),
                         Theme::of(*this).color(ThemeColor::separator));
    }
};

/// The heading of the background section.
class SectionHeaderRow final : public StackRow {
  public:
    SectionHeaderRow() {
        setObjectName("backgroundHeader");
        setAccessibleName(uiText("Background"));
    }

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Heading; }

    /// The height of the heading with the space below it.
    [[nodiscard]] static int rowHeight() {
        return QFontMetrics(headerFont()).height() + headerSpaceBelow;
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setFont(headerFont());
        painter.setPen(Theme::of(*this).color(ThemeColor::tertiary));
        painter.drawText(rect().adjusted(metrics::inset, 0, -metrics::inset, -headerSpaceBelow),
                         Qt::AlignLeading | Qt::AlignVCenter, uiText("Background").toUpper());
    }
};

/// Shown in the list when a search finds nothing.
class EmptyStateRow final : public StackRow {
  public:
    EmptyStateRow() {
        setObjectName("emptyState");
        setAccessibleName(uiText("No apps found"));
    }

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::StaticText;
    }

    [[nodiscard]] static int rowHeight() {
        return 2 * emptyPadding + Theme::symbolSide(emptySymbolPoints) + emptySpacing +
               QFontMetrics(Theme::font(TextStyle::body)).height();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const Theme theme = Theme::of(*this);
        QPainter painter(this);
        const int side = Theme::symbolSide(emptySymbolPoints);
        drawSymbol(painter, QRect(0, emptyPadding, width(), side), "magnifyingglass", side,
                   theme.color(ThemeColor::tertiary));
        painter.setFont(Theme::font(TextStyle::body));
        painter.setPen(theme.color(ThemeColor::secondary));
        painter.drawText(
            rect().adjusted(metrics::inset, emptyPadding + side + emptySpacing, -metrics::inset, 0),
            Qt::AlignHCenter | Qt::AlignTop, uiText("No apps found"));
    }
};

std::unique_ptr<StackRow> makeRow(RowKind kind) {
    switch (kind) {
    case RowKind::app:
    case RowKind::backgroundApp:
        return std::make_unique<AppRowView>();
    case RowKind::backgroundGroup:
        return std::make_unique<BackgroundGroupRowView>();
    case RowKind::divider:
        return std::make_unique<DividerRow>();
    case RowKind::sectionHeader:
        return std::make_unique<SectionHeaderRow>();
    case RowKind::emptyState:
        return std::make_unique<EmptyStateRow>();
    }
    return {};
}

} // namespace

PopoverList::PopoverList(Actions actions, const Clock& clock, QWidget* parent)
    : QScrollArea(parent), actions_(std::move(actions)), clock_(clock),
      stack_(new RowStack({.make = makeRow,
                           .bind = [this](StackRow& row, const RowKey& key) { bindRow(row, key); },
                           .reveal = [this](int top, int height) { reveal(top, height); },
                           .movedUnderPointer = [this] { rowsMoved(); }},
                          nullptr)) {
    setObjectName("list");
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMaximumHeight(highestList);
    verticalScrollBar()->setSingleStep(appRowHeight + appRowSpacing);
    viewport()->setAutoFillBackground(false);
    stack_->setObjectName("rows");
    stack_->setAccessibleName(uiText("Running apps"));
    setWidget(stack_);
    stack_->setAutoFillBackground(false);
    connect(verticalScrollBar(), &QAbstractSlider::valueChanged, this, [this] { updateBand(); });
    connect(qApp, &QApplication::focusChanged, this, [this] {
        const bool hasFocus = hasFocusInside();
        if (std::exchange(hadFocus_, hasFocus) && !hasFocus) {
            notifyIfLeft();
        }
    });
}

bool PopoverList::hasFocusInside() const {
    const QWidget* focus = QApplication::focusWidget();
    return focus && isAncestorOf(focus);
}

bool PopoverList::isInUse() const {
    return hasPointer_ || hasFocusInside() || QApplication::activePopupWidget();
}

void PopoverList::notifyIfLeft() {
    if (sortOrder_ != SortOrder::alphabetical && !isInUse()) {
        actions_.left();
    }
}

void PopoverList::rowsMoved() {
    if (!isMoveByUser_) {
        guard_.rowsMoved(clock_.ticks());
    }
}

bool PopoverList::acceptsPress() const {
    return guard_.accepts(clock_.ticks());
}

std::vector<AppInfo> PopoverList::orderedApps(const AppListViewModel& model,
                                              bool isSameView) const {
    if (!isSameView || sortOrder_ == SortOrder::alphabetical || !isInUse()) {
        return model.filteredApps();
    }
    std::vector<ProcessId> shown;
    std::ranges::transform(apps_, std::back_inserter(shown), &AppInfo::pid);
    return inShownOrder(model.filteredApps(), shown);
}

void PopoverList::showList(const AppListViewModel& model, const AppSettings& settings,
                           bool isForceQuit, Removal removal) {
    const bool isSameView = !std::exchange(isFresh_, false) && searchText_ == model.searchText() &&
                            sortOrder_ == settings.sortOrder();
    searchText_ = model.searchText();
    sortOrder_ = settings.sortOrder();
    display_ = settings.resourceDisplay();
    isForceQuit_ = isForceQuit;
    apps_ = orderedApps(model, isSameView);
    background_ = model.filteredBackgroundApps();
    entries_.clear();
    for (const AppInfo& app : apps_) {
        entries_.emplace(RowKey{RowKind::app, app.pid}, &app);
    }
    for (const AppInfo& app : background_) {
        const RowKind kind = app.childProcesses ? RowKind::backgroundGroup : RowKind::backgroundApp;
        entries_.emplace(RowKey{kind, app.pid}, &app);
    }
    std::set<ProcessId> groups;
    for (const AppInfo& app : model.backgroundApps()) {
        if (app.childProcesses) {
            groups.insert(app.pid);
        }
    }
    std::erase_if(expanded_, [&](ProcessId pid) { return !groups.contains(pid); });
    std::vector<RowSlot> slots = rowSlots(!model.searchText().empty());
    const RowMotion motion = motionTo(slots, removal != Removal::other);
    if (slots != slots_) {
        isMoveByUser_ = removal == Removal::afterQuit || toggledGroup_ || !isSameView;
    }
    toggledGroup_ = false;
    slots_ = slots;
    stack_->setRows(std::move(slots), motion);
    updateBand();
}

std::vector<RowSlot> PopoverList::rowSlots(bool isSearching) const {
    std::vector<RowSlot> slots;
    slots.reserve(apps_.size() + background_.size() + 2);
    for (const AppInfo& app : apps_) {
        slots.push_back({.key = {RowKind::app, app.pid},
                         .height = appRowHeight,
                         .spaceBefore = slots.empty() ? listPadding : appRowSpacing});
    }
    if (!background_.empty()) {
        const int below = (slots.empty() ? 2 : 1) * listPadding;
        slots.push_back({.key = {RowKind::divider, 0},
                         .height = DividerRow::rowHeight,
                         .spaceBefore = below + dividerSpace,
                         .lines = 0});
        slots.push_back({.key = {RowKind::sectionHeader, 0},
                         .height = SectionHeaderRow::rowHeight(),
                         .spaceBefore = dividerSpace,
                         .lines = 0});
        for (const AppInfo& app : background_) {
            if (app.childProcesses) {
                const bool isOpen = expanded_.contains(app.pid);
                const int members = static_cast<int>(app.childProcesses->size());
                slots.push_back({.key = {RowKind::backgroundGroup, app.pid},
                                 .height = BackgroundGroupRowView::heightOf(app, isOpen),
                                 .lines = isOpen ? 1 + members : 1,
                                 .memberHeight = appRowHeight});
            } else {
                slots.push_back({.key = {RowKind::backgroundApp, app.pid}, .height = appRowHeight});
            }
        }
    }
    if (slots.empty() && isSearching) {
        slots.push_back(
            {.key = {RowKind::emptyState, 0}, .height = EmptyStateRow::rowHeight(), .lines = 0});
    }
    return slots;
}

RowMotion PopoverList::motionTo(const std::vector<RowSlot>& slots, bool wereQuit) const {
    if (toggledGroup_) {
        return RowMotion::expansion;
    }
    if (slots_.empty() || slots.size() == slots_.size()) {
        return RowMotion::jump;
    }
    return wereQuit ? RowMotion::removal : RowMotion::count;
}

void PopoverList::bindRow(StackRow& row, const RowKey& key) {
    const auto entry = entries_.find(key);
    if (entry == entries_.end()) {
        return;
    }
    if (key.kind == RowKind::backgroundGroup) {
        bindGroup(row, *entry->second);
    } else {
        bindApp(row, *entry->second);
    }
}

void PopoverList::bindApp(StackRow& row, const AppInfo& app) {
    const ProcessId pid = app.pid;
    const auto shown = std::make_shared<const AppInfo>(app);
    static_cast<AppRowView&>(row).setRow(
        {.app = app,
         .isForceQuit = isForceQuit_,
         .resourceDisplay = display_,
         .isWhitelisted = app.isWhitelisted,
         .onToggle = [this, pid] { actions_.toggle(pid); },
         .onQuit = [this, shown, force = isForceQuit_] { actions_.quit(*shown, force); },
         .onToggleWhitelist = [this, pid] { actions_.toggleWhitelist(pid); },
         .canQuitAndReopen = [this, shown] { return actions_.canQuitAndReopen(*shown); },
         .onQuitAndReopen = [this, shown,
                             force = isForceQuit_] { actions_.quitAndReopen(*shown, force); },
         .onShow = [this, pid] { actions_.show(pid); },
         .acceptsPress = [this] { return acceptsPress(); }});
}

void PopoverList::bindGroup(StackRow& row, const AppInfo& app) {
    auto& group = static_cast<BackgroundGroupRowView&>(row);
    group.setRow(
        {.app = app,
         .isForceQuit = isForceQuit_,
         .resourceDisplay = display_,
         .onToggle = actions_.toggle,
         .onQuit = [this, force = isForceQuit_](ProcessId pid) { actions_.quitMember(pid, force); },
         .onToggleWhitelist = actions_.toggleWhitelist,
         .onShow = actions_.show,
         .acceptsPress = [this] { return acceptsPress(); },
         .onMembersMoved =
             [this] {
                 isMoveByUser_ = false;
                 rowsMoved();
             }});
    group.setExpanded(expanded_.contains(app.pid));
    group.setOnExpandedChanged([this, pid = app.pid](bool isExpanded) {
        if (isExpanded) {
            expanded_.insert(pid);
        } else {
            expanded_.erase(pid);
        }
        toggledGroup_ = true;
        actions_.groupToggled();
    });
}

void PopoverList::reveal(int top, int height) {
    const int seen = verticalScrollBar()->value();
    if (top < seen + listPadding) {
        verticalScrollBar()->setValue(top - listPadding);
    } else if (top + height + listPadding > seen + viewport()->height()) {
        verticalScrollBar()->setValue(top + height + listPadding - viewport()->height());
    }
}

void PopoverList::updateBand() {
    const int top = verticalScrollBar()->value();
    stack_->setBand(top, top + viewport()->height());
}

void PopoverList::scroll(QKeyEvent& event) {
    QCoreApplication::sendEvent(verticalScrollBar(), &event);
}

void PopoverList::hideEvent(QHideEvent* event) {
    // A window that closes under the pointer gets no leave event.
    hasPointer_ = false;
    QScrollArea::hideEvent(event);
}

void PopoverList::leaveEvent(QEvent* event) {
    hasPointer_ = false;
    notifyIfLeft();
    QScrollArea::leaveEvent(event);
}

void PopoverList::keyPressEvent(QKeyEvent* event) {
    event->ignore(); // The popover moves the focus from row to row.
}

void PopoverList::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    stack_->resize(viewport()->width(), stack_->height());
    updateBand();
}

} // namespace calmora
