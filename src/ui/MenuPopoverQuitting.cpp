// SPDX-License-Identifier: MIT
// What MenuPopoverView does with the quit buttons.
#include "ui/MenuPopoverView.h"

#include "model/QuitTogether.h"
#include "model/ReopenList.h"
#include "platform/LocalizedStrings.h"
#include "platform/RunLoop.h"
#include "settings/ExtraSettings.h"
#include "ui/ForceQuitConfirmation.h"
#include "ui/TogetherOffer.h"

#include <QPointer>

#include <algorithm>

namespace calmora {

bool MenuPopoverView::quitsTogether() const {
    return surroundings_.together && surroundings_.extras && surroundings_.extras->quitsTogether();
}

void MenuPopoverView::finishQuit(bool hasLeft) {
    surroundings_.inputGate.discardQueuedInput();
    offersTogether_ = offersTogether_ || hasLeft;
    offerTogether();
}

void MenuPopoverView::offerTogether() {
    if (surroundings_.extras && offersTogether_) {
        note_->setOffer(togetherOffer(*surroundings_.extras, [this] { offersTogether_ = false; }));
    }
}

void MenuPopoverView::showApp(ProcessId pid) {
    // Closing gives the focus back to where it was; the window comes after that.
    surroundings_.popover.performClose();
    showing_ = surroundings_.platform.runLoop.nextTurn([this, pid] { viewModel_.show(pid); });
}

void MenuPopoverView::quitAll(bool force) {
    const Platform& platform = surroundings_.platform;
    const QPointer<MenuPopoverView> self(this);
    if (force &&
        !confirmForceQuitAll(platform.alerts, platform.strings, viewModel_.selectedCount(force))) {
        return;
    }
    if (self && quitsTogether()) {
        viewModel_.beginQuitSelected(force);
    } else if (self) {
        const std::size_t wanted = viewModel_.selectedCount(force);
        finishQuit(viewModel_.quitSelected(force) < wanted);
    }
}

// The row that was clicked, and with it what it holds, may go while the user is asked.
// NOLINTBEGIN(performance-unnecessary-value-param)
void MenuPopoverView::quitRow(AppInfo app, bool force) {
    if (!confirmsQuit(app, force)) {
        return;
    }
    if (quitsTogether()) {
        viewModel_.beginQuit(app.pid, force);
    } else {
        finishQuit(!viewModel_.quitApp(app.pid, force));
    }
}

void MenuPopoverView::quitAndReopen(AppInfo app, bool force) {
    if (confirmsQuit(app, force) && reopenList()) {
        reopenList()->prepareRestart(app);
        viewModel_.beginQuit(app.pid, force);
    }
}

// NOLINTEND(performance-unnecessary-value-param)

bool MenuPopoverView::confirmsQuit(const AppInfo& app, bool force) {
    const Platform& platform = surroundings_.platform;
    const QPointer<MenuPopoverView> self(this);
    const bool isConfirmed =
        !force || confirmForceQuit(platform.alerts, platform.strings, app.name, app.icon);
    return isConfirmed && self;
}

ReopenList* MenuPopoverView::reopenList() const {
    return quitsTogether() ? surroundings_.reopenList : nullptr;
}

void MenuPopoverView::reopen() {
    if (reopenList()) {
        surroundings_.together->forgetEnded(); // None of them will have come back by itself.
        reopenList()->reopen();
        markDirty();
    }
}

void MenuPopoverView::quitMember(ProcessId pid, bool force) {
    AppInfo shown;
    shown.pid = pid;
    shown.name = surroundings_.platform.strings.text("this app");
    // The entry itself comes before its members, so that the first match is kept.
    std::vector<AppInfo> candidates;
    for (const AppInfo& entry : viewModel_.filteredBackgroundApps()) {
        candidates.push_back(entry);
        const auto members = entry.childProcesses.value_or(std::vector<AppInfo>{});
        candidates.insert(candidates.end(), members.begin(), members.end());
    }
    const auto found = std::ranges::find(candidates, pid, &AppInfo::pid);
    quitRow(found == candidates.end() ? shown : *found, force);
}

} // namespace calmora
