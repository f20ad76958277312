// SPDX-License-Identifier: MIT
#include "ui/MenuPopoverView.h"

#include "model/QuitTogether.h"
#include "model/ReopenList.h"
#include "platform/LocalizedStrings.h"
#include "platform/Workspace.h"
#include "settings/AppSettings.h"
#include "ui/ListNote.h"
#include "ui/PopoverFooter.h"
#include "ui/PopoverList.h"
#include "ui/QuitAllButton.h"
#include "ui/QuitTexts.h"
#include "ui/RowAccessibility.h"
#include "ui/RowStack.h"
#include "ui/SearchBox.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <utility>

namespace calmora {
namespace {

constexpr Points ring = metrics::focusRing;
constexpr std::chrono::milliseconds pollingInterval{3000};

bool isTyping(const QKeyEvent& event) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    return !(event.modifiers() & commands) && !text.isEmpty() && text.front().isPrint() &&
           !text.front().isSpace();
}

/// Says how many entries a click affects; empty for none.
QString countHint(const EntryCount& count, const char* all, const char* withHidden) {
    if (count.all == 0) {
        return {};
    }
    const auto number = static_cast<qlonglong>(count.all);
    return count.hidden == 0 ? uiCount(all, number)
                             : QString::fromStdString(
                                   fillPlaceholders(uiCount(withHidden, number).toStdString(),
                                                    {static_cast<std::int64_t>(count.hidden)}));
}

void setHint(QWidget& widget, const QString& hint) {
    if (widget.toolTip() != hint) {
        changeToolTip(widget, hint);
        widget.setAccessibleDescription(hint);
    }
}

} // namespace

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
            removal_ = PopoverList::Removal::afterQuit;
        } else if (change.reason == AppListChange::Reason::removedMeanwhile) {
            removal_ = PopoverList::Removal::meanwhile;
        }
        markDirty();
    });
    settingsChanges_ = settings_.observeAny([this] { markDirty(); });
    neverQuitChanges_ = settings_.neverQuitApps.observe([this] { viewModel_.applyWhitelist(); });
    if (surroundings_.together) {
        quitFinishes_ = surroundings_.together->onFinished([this](const std::vector<AppInfo>&) {
            showsResult_ = isVisible();
            markDirty();
        });
        // Its question may take the focus while others are still being quit.
        surroundings_.popover.stayOpenWhile(
            [together = surroundings_.together] { return together->isUnderWay(); });
    }
    willShow_ = surroundings_.popover.onWillShow([this] {
        build();
        listen();
        note_->refresh();
        viewModel_.refresh();
    });
}

MenuPopoverView::~MenuPopoverView() {
    // The base class deletes the children after this object is gone.
    if (eventMonitor_) {
        viewModel_.stopPolling();
    }
}

void MenuPopoverView::build() {
    if (quitAll_ && builtScale_ == Theme::textScale()) {
        return;
    }
    // The desktop's font has changed: everything has another size.
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
    delete layout();
    builtScale_ = Theme::textScale();
    quitAll_ = new QuitAllButton(this);
    selectAll_ = new CheckBox(this);
    selectAll_->setObjectName("selectAll");
    selectAll_->setAccessibleName(uiText("Select all"));
    search_ = new SearchBox(this);
    list_ = new PopoverList(
        {.toggle = [this](ProcessId pid) { viewModel_.toggleSelection(pid); },
         .toggleWhitelist = [this](ProcessId pid) { viewModel_.toggleWhitelist(pid); },
         .quit = [this](const AppInfo& app, bool force) { quitRow(app, force); },
         .canQuitAndReopen =
             [this](const AppInfo& app) {
                 const ReopenList* list = reopenList();
                 return list && list->canRestart(app);
             },
         .quitAndReopen = [this](const AppInfo& app, bool force) { quitAndReopen(app, force); },
         .quitMember = [this](ProcessId pid, bool force) { quitMember(pid, force); },
         .show = [this](ProcessId pid) { showApp(pid); },
         .groupToggled = [this] { markDirty(); },
         .left = [this] { markDirty(); }},
        surroundings_.platform.clock, this);
    note_ = new ListNote(surroundings_.limitation, surroundings_.extension, this);
    footer_ = new PopoverFooter(
        [this] {
            if (const auto open = surroundings_.openSettings) {
                open();
            }
        },
        [this] { reopen(); }, this);

    arrange();

    connect(quitAll_, &QAbstractButton::clicked, this,
            [this] { quitAll(quitAll_->isForceQuit()); });
    connect(selectAll_, &QAbstractButton::clicked, this,
            [this] { viewModel_.setAllSelected(viewModel_.selectAllClick().isSelected); });
    connect(&search_->field(), &QLineEdit::textChanged, this, [this](const QString& text) {
        viewModel_.setSearchText(text.toStdString());
        // Results are shown from the first one.
        list_->scrollToTop();
    });
}

void MenuPopoverView::arrange() {
    // The controls have space for their focus rings themselves, so the margins are less by that
    // much; they are the same on both sides for right-to-left.
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* top = new QHBoxLayout;
    top->setContentsMargins(metrics::inset - ring, Points{10} - ring, metrics::inset - ring,
                            Points{6} - ring);
    top->addWidget(quitAll_);
    column->addLayout(top);
    auto* selection = new QHBoxLayout;
    selection->setContentsMargins(metrics::inset - ring, 0, metrics::inset - ring, Points{6});
    selection->setSpacing(Points{8} - ring);
    selection->addWidget(selectAll_);
    selection->addWidget(search_, 1);
    selection->addSpacing(ring);
    column->addLayout(selection);
    column->addWidget(new Divider(metrics::inset, this));
    column->addWidget(list_, 1);
    column->addWidget(new Divider(metrics::inset, this));
    column->addWidget(note_);
    column->addWidget(footer_);
}

void MenuPopoverView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        if (!quitAll_) {
            // Shown without a popover: children made this late must be shown one by one.
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
    // The first frame shows the present list without motion.
    removal_ = PopoverList::Removal::other;
    showsResult_ = false;
    offerTogether();
    if (ReopenList* list = reopenList()) {
        reopenChanges_ = list->onChanged([this] { markDirty(); });
    }
    list_->startOver();
    rebuild();
}

void MenuPopoverView::disappear() {
    viewModel_.stopPolling();
    if (surroundings_.together) {
        surroundings_.together->cancel();
    }
    eventMonitor_.reset();
    launched_.reset();
    terminated_.reset();
    isForceQuit_ = false;
    isDirty_ = true;
    // Closing ends a press that was under way.
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
        // it is released.
        waitsForRelease_ = true;
        qApp->installEventFilter(this);
        return;
    }
    isDirty_ = false;
    list_->showList(viewModel_, settings_, isForceQuit_,
                    std::exchange(removal_, PopoverList::Removal::other));
    showControls();
}

void MenuPopoverView::showControls() {
    quitAll_->setForceQuit(isForceQuit_);
    const EntryCount selected = viewModel_.selected(isForceQuit_);
    quitAll_->setEnabled(selected.all > 0);
    setHint(*quitAll_,
            isForceQuit_ ? countHint(selected, "Force quits %lld applications",
                                     "Force quits %lld applications, %lld of them hidden by the "
                                     "search")
                         : countHint(selected, "Quits %lld applications",
                                     "Quits %lld applications, %lld of them hidden by the search"));
    const QString text = QString::fromStdString(viewModel_.searchText());
    if (search_->field().text() != text) {
        search_->field().setText(text);
    }
    const auto& apps = viewModel_.apps();
    selectAll_->setChecked(!apps.empty() && std::ranges::all_of(apps, &AppInfo::isSelected));
    const SelectAllClick click = viewModel_.selectAllClick();
    setHint(*selectAll_,
            click.isSelected
                ? countHint(click.entries, "Selects %lld applications",
                            "Selects %lld applications, %lld of them hidden by the search")
                : countHint(click.entries, "Deselects %lld applications",
                            "Deselects %lld applications, %lld of them hidden by the search"));
    const ReopenList* reopening = reopenList();
    footer_->show(statusText(), reopening && !reopening->isEmpty());
}

QString MenuPopoverView::statusText() const {
    if (showsResult_ && !surroundings_.together->isUnderWay()) {
        if (const auto result = surroundings_.together->result()) {
            return resultText(*result);
        }
    }
    const auto& apps = viewModel_.apps();
    const auto protectedCount = std::ranges::count_if(apps, &AppInfo::isWhitelisted);
    const auto count = static_cast<qlonglong>(apps.size());
    return protectedCount == 0 ? uiCount("apps_running_count %lld", count)
                               : QString::fromStdString(fillPlaceholders(
                                     uiCount("%lld apps · %lld protected", count).toStdString(),
                                     {static_cast<std::int64_t>(protectedCount)}));
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
    const auto inList = list_->rows().tabStops();
    stops.insert(stops.end(), inList.begin(), inList.end());
    const auto inFooter = footer_->tabStops();
    stops.insert(stops.end(), inFooter.begin(), inFooter.end());
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
    case Qt::Key_Escape:
        if (!viewModel_.searchText().empty()) {
            search_->field().clear();
            return;
        }
        break;
    case Qt::Key_Down:
        list_->rows().moveFocus(1);
        return;
    case Qt::Key_Up:
        if (!list_->rows().focusedLine() || !list_->rows().moveFocus(-1)) {
            search_->field().setFocus(Qt::TabFocusReason);
        }
        return;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        list_->scroll(*event);
        return;
    case Qt::Key_F10:
        // Replaces the menu key on keyboards without one.
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
    // A click beside the controls takes the focus from the search field.
    setFocus(Qt::MouseFocusReason);
    QWidget::mousePressEvent(event);
}

} // namespace calmora
