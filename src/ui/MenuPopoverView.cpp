#include "ui/MenuPopoverView.h"

#include "platform/InputGate.h"
#include "platform/LocalizedStrings.h"
#include "platform/Workspace.h"
#include "settings/AppSettings.h"
#include "ui/AppRowView.h"
#include "ui/BackgroundGroupRowView.h"
#include "ui/ForceQuitConfirmation.h"
#include "ui/ListExtras.h"
#include "ui/QuitAllButton.h"
#include "ui/RowAccessibility.h"
#include "ui/RowStack.h"
#include "ui/SearchBox.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Metrics.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <utility>

namespace calmora {
namespace {

constexpr int ring = metrics::focusRing;
constexpr int listPadding = 4;
constexpr int dividerSpace = 4;
constexpr int highestList = 400;
constexpr int gearPoints = 14;
constexpr std::chrono::milliseconds pollingInterval{3000};

bool isTyping(const QKeyEvent& event) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    return !(event.modifiers() & commands) && !text.isEmpty() && text.front().isPrint() &&
           !text.front().isSpace();
}

} // namespace

/// The scrolling part: as wide as the view, at most 400 high.
class MenuPopoverView::ListArea final : public QScrollArea {
  public:
    explicit ListArea(QWidget* parent) : QScrollArea(parent) {
        setObjectName("list");
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setMaximumHeight(highestList);
        verticalScrollBar()->setSingleStep(appRowHeight + appRowSpacing);
        viewport()->setAutoFillBackground(false);
        connect(verticalScrollBar(), &QAbstractSlider::valueChanged, this, [this] { tellBand(); });
    }

    void hold(RowStack* stack) {
        stack_ = stack;
        setWidget(stack);
        stack->setAutoFillBackground(false);
    }

    void reveal(int top, int height) {
        const int seen = verticalScrollBar()->value();
        if (top < seen + listPadding) {
            verticalScrollBar()->setValue(top - listPadding);
        } else if (top + height + listPadding > seen + viewport()->height()) {
            verticalScrollBar()->setValue(top + height + listPadding - viewport()->height());
        }
    }

    void tellBand() {
        if (stack_) {
            const int top = verticalScrollBar()->value();
            stack_->setBand(top, top + viewport()->height());
        }
    }

  protected:
    /// The arrows move the keyboard from row to row, which is the view's affair.
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }

    void resizeEvent(QResizeEvent* event) override {
        QScrollArea::resizeEvent(event);
        if (stack_) {
            stack_->resize(viewport()->width(), stack_->height());
        }
        tellBand();
    }

  private:
    RowStack* stack_ = nullptr;
};

MenuPopoverView::MenuPopoverView(AppSettings& settings, AppListViewModel& viewModel,
                                 MenuPopoverSurroundings surroundings, QWidget* parent)
    : QWidget(parent), settings_(settings), viewModel_(viewModel),
      surroundings_(std::move(surroundings)) {
    setObjectName("menuPopover");
    setAccessibleName("Calmora");
    setFocusPolicy(Qt::StrongFocus);
    installRowAccessibility();
    modelChanges_ = viewModel_.observe([this](const AppListChange& change) {
        if (change.reason == AppListChange::Reason::removedAfterQuit) {
            removedAfterQuit_ = true;
        }
        markDirty();
    });
    settingsChanges_ = settings_.observeAny([this] { markDirty(); });
    neverQuitChanges_ = settings_.neverQuitApps.observe([this] { viewModel_.applyWhitelist(); });
    willShow_ = surroundings_.popover.onWillShow([this] {
        build();
        listen();
        viewModel_.refresh();
    });
}

MenuPopoverView::~MenuPopoverView() {
    // The children go later, as members of the base class; what they would tell finds nobody.
    if (eventMonitor_) {
        viewModel_.stopPolling();
    }
}

void MenuPopoverView::build() {
    if (quitAll_) {
        return;
    }
    quitAll_ = new QuitAllButton(this);
    selectAll_ = new CheckBox(this);
    selectAll_->setObjectName("selectAll");
    selectAll_->setAccessibleName(uiText("Select all"));
    search_ = new SearchBox(this);
    area_ = new ListArea(this);
    stack_ = new RowStack({.make = [this](RowKind kind) { return makeRow(kind); },
                           .bind = [this](StackRow& row, const RowKey& key) { bindRow(row, key); },
                           .reveal = [this](int top, int height) { area_->reveal(top, height); }},
                          nullptr);
    stack_->setObjectName("rows");
    area_->hold(stack_);
    status_ = new Label({}, TextStyle::caption2, ThemeColor::tertiary, this);
    status_->setObjectName("status");
    gear_ = new SymbolButton(this);
    gear_->setObjectName("openSettings");
    gear_->setSymbol("gear", gearPoints, ThemeColor::secondary);
    gear_->setAccessibleName(uiText("Settings"));

    // Margins, which are the same on both sides for the sake of right-to-left, leave out the room
    // for focus rings that the controls have themselves.
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* top = new QHBoxLayout;
    top->setContentsMargins(metrics::inset - ring, 10 - ring, metrics::inset - ring, 6 - ring);
    top->addWidget(quitAll_);
    column->addLayout(top);
    auto* selection = new QHBoxLayout;
    selection->setContentsMargins(metrics::inset - ring, 0, metrics::inset - ring, 6);
    selection->setSpacing(8 - ring);
    selection->addWidget(selectAll_);
    selection->addWidget(search_, 1);
    selection->addSpacing(ring);
    column->addLayout(selection);
    column->addWidget(new Divider(metrics::inset, this));
    column->addWidget(area_, 1);
    column->addWidget(new Divider(metrics::inset, this));
    if (!surroundings_.limitation.empty()) {
        auto* limitation = new Paragraph(uiText(surroundings_.limitation.c_str()),
                                         TextStyle::caption2, ThemeColor::secondary, this);
        limitation->setObjectName("limitation");
        auto* line = new QHBoxLayout;
        line->setContentsMargins(metrics::inset, 6, metrics::inset, 0);
        line->addWidget(limitation);
        column->addLayout(line);
    }
    auto* footer = new QHBoxLayout;
    footer->setContentsMargins(metrics::inset - ring, 8 - ring, metrics::inset - ring, 8 - ring);
    footer->setSpacing(8);
    footer->addSpacing(ring);
    footer->addWidget(status_, 1);
    footer->addWidget(gear_);
    column->addLayout(footer);

    connect(quitAll_, &QAbstractButton::clicked, this,
            [this] { quitAll(quitAll_->isForceQuit()); });
    connect(selectAll_, &QAbstractButton::clicked, this,
            [this] { viewModel_.setAllSelected(!selectAll_->isChecked()); });
    connect(&search_->field(), &QLineEdit::textChanged, this, [this](const QString& text) {
        viewModel_.setSearchText(text.toStdString());
        // What is found is seen from its start, wherever the list had been scrolled to.
        area_->verticalScrollBar()->setValue(0);
    });
    connect(gear_, &QAbstractButton::clicked, this, [this] {
        if (const auto open = surroundings_.openSettings) {
            open();
        }
    });
}

QSize MenuPopoverView::sizeHint() const {
    return {360, 500};
}

void MenuPopoverView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        if (!quitAll_) {
            // Shown by nobody's popover: what is made this late has to be shown one by one.
            build();
            layout()->activate();
            for (auto* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                child->show();
            }
        }
        appear();
    }
}

void MenuPopoverView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        disappear();
    }
}

/// Before the list is asked for: a workspace that is listened to keeps it up to date by itself.
void MenuPopoverView::listen() {
    if (!launched_) {
        const auto refresh = [this](const WorkspaceApplication&) { viewModel_.refresh(); };
        launched_ = surroundings_.platform.workspace.onLaunched(refresh);
        terminated_ = surroundings_.platform.workspace.onTerminated(refresh);
    }
}

void MenuPopoverView::appear() {
    listen();
    viewModel_.refresh();
    viewModel_.startPolling(pollingInterval);
    eventMonitor_ = surroundings_.eventMonitor.onModifierFlagsChanged([this](ModifierFlags flags) {
        isForceQuit_ = flags.contains(ModifierFlags::option);
        markDirty();
    });
    setFocus(Qt::OtherFocusReason);
    window()->setAttribute(Qt::WA_KeyboardFocusChange, false);
    isScheduled_ = false;
    waitsForRelease_ = false;
    // The first frame shows the present list at once.
    removedAfterQuit_ = false;
    slots_.clear();
    rebuild();
}

void MenuPopoverView::disappear() {
    viewModel_.stopPolling();
    eventMonitor_.reset();
    launched_.reset();
    terminated_.reset();
    isForceQuit_ = false;
    isDirty_ = true;
    // A press that the closing cut short is no press any more.
    for (auto* button : findChildren<QAbstractButton*>()) {
        button->setDown(false);
    }
}

void MenuPopoverView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        markDirty();
    }
    QWidget::changeEvent(event);
}

void MenuPopoverView::markDirty() {
    isDirty_ = true;
    if (isScheduled_ || waitsForRelease_ || !isVisible()) {
        return;
    }
    isScheduled_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            isScheduled_ = false;
            if (isDirty_ && isVisible()) {
                rebuild();
            }
        },
        Qt::QueuedConnection);
}

bool MenuPopoverView::isButtonDown() const {
    const auto buttons = findChildren<QAbstractButton*>();
    return std::ranges::any_of(buttons, &QAbstractButton::isDown);
}

void MenuPopoverView::rebuild() {
    if (isButtonDown()) {
        // A click acts on what was drawn when the button was pressed, so nothing changes until
        // it is let go.
        waitsForRelease_ = true;
        qApp->installEventFilter(this);
        return;
    }
    isDirty_ = false;
    shownApps_ = viewModel_.filteredApps();
    shownBackground_ = viewModel_.filteredBackgroundApps();
    entries_.clear();
    for (const AppInfo& app : shownApps_) {
        entries_.emplace(RowKey{RowKind::app, app.pid}, &app);
    }
    std::set<ProcessId> groups;
    for (const AppInfo& app : viewModel_.backgroundApps()) {
        if (app.childProcesses) {
            groups.insert(app.pid);
        }
    }
    std::erase_if(expanded_, [&](ProcessId pid) { return !groups.contains(pid); });
    for (const AppInfo& app : shownBackground_) {
        const RowKind kind = app.childProcesses ? RowKind::backgroundGroup : RowKind::backgroundApp;
        entries_.emplace(RowKey{kind, app.pid}, &app);
    }
    std::vector<RowSlot> slots = rowSlots();
    const RowMotion motion = motionTo(slots);
    removedAfterQuit_ = false;
    toggledGroup_ = false;
    slots_ = slots;
    stack_->setRows(std::move(slots), motion);
    area_->tellBand();
    showControls();
}

std::vector<RowSlot> MenuPopoverView::rowSlots() const {
    std::vector<RowSlot> slots;
    slots.reserve(shownApps_.size() + shownBackground_.size() + 2);
    for (const AppInfo& app : shownApps_) {
        slots.push_back({.key = {RowKind::app, app.pid},
                         .height = appRowHeight,
                         .spaceBefore = slots.empty() ? listPadding : appRowSpacing});
    }
    if (!shownBackground_.empty()) {
        const int below = slots.empty() ? 2 * listPadding : listPadding;
        slots.push_back({.key = {RowKind::divider, 0},
                         .height = DividerRow::rowHeight,
                         .spaceBefore = below + dividerSpace,
                         .lines = 0});
        slots.push_back({.key = {RowKind::sectionHeader, 0},
                         .height = SectionHeaderRow::rowHeight(),
                         .spaceBefore = dividerSpace,
                         .lines = 0});
        for (const AppInfo& app : shownBackground_) {
            if (app.childProcesses) {
                const bool isOpen = expanded_.contains(app.pid);
                const int members = static_cast<int>(app.childProcesses->size());
                slots.push_back({.key = {RowKind::backgroundGroup, app.pid},
                                 .height = BackgroundGroupRowView::heightOf(app, isOpen),
                                 .lines = isOpen ? 1 + members : 1});
            } else {
                slots.push_back({.key = {RowKind::backgroundApp, app.pid}, .height = appRowHeight});
            }
        }
    }
    if (slots.empty() && !viewModel_.searchText().empty()) {
        slots.push_back(
            {.key = {RowKind::emptyState, 0}, .height = EmptyStateRow::rowHeight(), .lines = 0});
    }
    return slots;
}

RowMotion MenuPopoverView::motionTo(const std::vector<RowSlot>& slots) const {
    if (toggledGroup_) {
        return RowMotion::expansion;
    }
    if (slots_.empty() || slots.size() == slots_.size()) {
        return RowMotion::jump;
    }
    return removedAfterQuit_ ? RowMotion::removal : RowMotion::count;
}

void MenuPopoverView::showControls() {
    quitAll_->setForceQuit(isForceQuit_);
    quitAll_->setEnabled(viewModel_.selectedCount() > 0);
    selectAll_->setChecked(allSelected());
    const QString text = QString::fromStdString(viewModel_.searchText());
    if (search_->field().text() != text) {
        search_->field().setText(text);
    }
    const auto& apps = viewModel_.apps();
    const auto protectedCount = std::ranges::count_if(apps, &AppInfo::isWhitelisted);
    const auto count = static_cast<qlonglong>(apps.size());
    const QString status = protectedCount == 0
                               ? uiCount("apps_running_count %lld", count)
                               : QString::fromStdString(fillPlaceholders(
                                     uiCount("%lld apps · %lld protected", count).toStdString(),
                                     {std::to_string(protectedCount)}));
    if (status_->text() != status) {
        status_->setText(status);
    }
}

bool MenuPopoverView::allSelected() const {
    const auto& apps = viewModel_.apps();
    return !apps.empty() && std::ranges::all_of(apps, &AppInfo::isSelected);
}

std::unique_ptr<StackRow> MenuPopoverView::makeRow(RowKind kind) {
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

void MenuPopoverView::bindRow(StackRow& row, const RowKey& key) {
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

void MenuPopoverView::bindApp(StackRow& row, const AppInfo& app) {
    const ProcessId pid = app.pid;
    static_cast<AppRowView&>(row).setRow(
        {.app = app,
         .isForceQuit = isForceQuit_,
         .resourceDisplay = settings_.resourceDisplay(),
         .isWhitelisted = app.isWhitelisted,
         .onToggle = [this, pid] { viewModel_.toggleSelection(pid); },
         .onQuit = [this, app, force = isForceQuit_] { quitRow(app, force); },
         .onToggleWhitelist = [this, pid] { viewModel_.toggleWhitelist(pid); }});
}

void MenuPopoverView::bindGroup(StackRow& row, const AppInfo& app) {
    auto& group = static_cast<BackgroundGroupRowView&>(row);
    group.setRow(
        {.app = app,
         .isForceQuit = isForceQuit_,
         .resourceDisplay = settings_.resourceDisplay(),
         .onToggle = [this](ProcessId pid) { viewModel_.toggleSelection(pid); },
         .onQuit = [this, force = isForceQuit_](ProcessId pid) { quitBackground(pid, force); },
         .onToggleWhitelist = [this](ProcessId pid) { viewModel_.toggleWhitelist(pid); }});
    group.setExpanded(expanded_.contains(app.pid));
    group.setOnExpandedChanged([this, pid = app.pid](bool isExpanded) {
        if (isExpanded) {
            expanded_.insert(pid);
        } else {
            expanded_.erase(pid);
        }
        toggledGroup_ = true;
        markDirty();
    });
}

void MenuPopoverView::quitAll(bool force) {
    const Platform& platform = surroundings_.platform;
    const QPointer<MenuPopoverView> self(this);
    if (force &&
        !confirmForceQuitAll(platform.alerts, platform.strings, viewModel_.selectedCount())) {
        return;
    }
    if (self) {
        viewModel_.quitSelected(force);
        surroundings_.inputGate.discardQueuedInput();
    }
}

void MenuPopoverView::quitRow(const AppInfo& app, bool force) {
    const Platform& platform = surroundings_.platform;
    const ProcessId pid = app.pid;
    const QPointer<MenuPopoverView> self(this);
    if (force && !confirmForceQuit(platform.alerts, platform.strings, app.name, app.icon)) {
        return;
    }
    if (self) {
        viewModel_.quitApp(pid, force);
        surroundings_.inputGate.discardQueuedInput();
    }
}

void MenuPopoverView::quitBackground(ProcessId pid, bool force) {
    AppInfo shown;
    shown.pid = pid;
    shown.name = surroundings_.platform.strings.text("this app");
    const auto find = [&] {
        for (const AppInfo& entry : viewModel_.filteredBackgroundApps()) {
            if (entry.pid == pid) {
                shown.name = entry.name;
                shown.icon = entry.icon;
                return;
            }
            for (const AppInfo& member : entry.childProcesses.value_or(std::vector<AppInfo>{})) {
                if (member.pid == pid) {
                    shown.name = member.name;
                    shown.icon = member.icon;
                    return;
                }
            }
        }
    };
    if (force) {
        find();
    }
    quitRow(shown, force);
}

bool MenuPopoverView::eventFilter(QObject* watched, QEvent* event) {
    if (waitsForRelease_ &&
        (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::KeyRelease ||
         event->type() == QEvent::WindowDeactivate || event->type() == QEvent::FocusOut)) {
        // The event itself is handled first; the list follows on the next turn.
        waitsForRelease_ = false;
        qApp->removeEventFilter(this);
        markDirty();
    }
    return QWidget::eventFilter(watched, event);
}

bool MenuPopoverView::focusNextPrevChild(bool next) {
    std::vector<QWidget*> stops{quitAll_, selectAll_, &search_->field(), &search_->clearButton()};
    const auto inList = stack_->tabStops();
    stops.insert(stops.end(), inList.begin(), inList.end());
    stops.push_back(gear_);
    std::erase_if(stops, [this](const QWidget* stop) {
        return !stop->isEnabled() || !stop->isVisibleTo(this);
    });
    const auto at = std::ranges::find(stops, QApplication::focusWidget());
    const auto count = static_cast<std::ptrdiff_t>(stops.size());
    std::ptrdiff_t index = next ? 0 : count - 1;
    if (at != stops.end()) {
        index = (at - stops.begin() + (next ? 1 : count - 1)) % count;
    }
    stops[static_cast<std::size_t>(index)]->setFocus(next ? Qt::TabFocusReason
                                                          : Qt::BacktabFocusReason);
    return true;
}

void MenuPopoverView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Down:
        stack_->moveFocus(1);
        return;
    case Qt::Key_Up:
        if (!stack_->focusedLine() || !stack_->moveFocus(-1)) {
            search_->field().setFocus(Qt::TabFocusReason);
        }
        return;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        QCoreApplication::sendEvent(area_->verticalScrollBar(), event);
        return;
    case Qt::Key_F10:
        // What stands for the menu key on keyboards that have none.
        if (QWidget* focused = focusWidget(); focused && event->modifiers() == Qt::ShiftModifier) {
            const QPoint place = focused->rect().center();
            QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, focused->mapToGlobal(place));
            QCoreApplication::sendEvent(focused, &menu);
            return;
        }
        break;
    default:
        break;
    }
    const bool erases = event->key() == Qt::Key_Backspace && !viewModel_.searchText().empty();
    if ((isTyping(*event) || erases) && !search_->field().hasFocus()) {
        search_->field().setFocus(Qt::OtherFocusReason);
        search_->field().deselect();
        search_->field().end(false);
        QCoreApplication::sendEvent(&search_->field(), event);
        return;
    }
    QWidget::keyPressEvent(event);
}

void MenuPopoverView::mousePressEvent(QMouseEvent* event) {
    // A click beside the controls takes the keyboard from the search field.
    setFocus(Qt::MouseFocusReason);
    QWidget::mousePressEvent(event);
}

} // namespace calmora
