// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "settings/AppSettings.h"
#include "ui/RowLayout.h"
#include "ui/SteadyList.h"

#include <QScrollArea>
#include <QScrollBar>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace calmora {

class AppListViewModel;
class Clock;
class RowStack;
class StackRow;

/// The scrolling list of the popover: the applications, and below them the background section. At
/// most 400 high. Remembers which groups are open. While it is sorted by a figure and the pointer
/// or the focus is in it, rows keep their places; a press on a row that has just moved under the
/// pointer by itself does nothing.
class PopoverList final : public QScrollArea {
  public:
    /// Called for the user's actions. `force` is the mode that the row showed.
    struct Actions {
        std::function<void(ProcessId)> toggle;
        std::function<void(ProcessId)> toggleWhitelist;
        std::function<void(const AppInfo&, bool force)> quit;
        /// Whether an application can be quit and started again.
        std::function<bool(const AppInfo&)> canQuitAndReopen;
        std::function<void(const AppInfo&, bool force)> quitAndReopen;
        /// Quits a member of a group.
        std::function<void(ProcessId, bool force)> quitMember;
        /// Brings a window of an application to the front.
        std::function<void(ProcessId)> show;
        /// A group was opened or closed: the list must be shown again.
        std::function<void()> groupToggled;
        /// Pointer or focus has left: rows need no longer keep their places.
        std::function<void()> left;
    };

    /// The clock must outlive the list.
    PopoverList(Actions actions, const Clock& clock, QWidget* parent);

    /// How rows have left the list since it was shown last.
    enum class Removal {
        /// Not by a quit.
        other,
        /// By a quit for which the user has waited.
        afterQuit,
        /// By a quit that runs beside: the user may be about to click another row.
        meanwhile,
    };

    /// Shows the model's present list. Rows glide if their number changed, slower after a quit.
    void showList(const AppListViewModel& model, const AppSettings& settings, bool isForceQuit,
                  Removal removal);

    /// Lets the next list appear in its own order and without motion.
    void startOver() {
        slots_.clear();
        isFresh_ = true;
    }

    void scrollToTop() { verticalScrollBar()->setValue(0); }

    /// Forwards a key that scrolls to the scroll bar.
    void scroll(QKeyEvent& event);

    [[nodiscard]] RowStack& rows() { return *stack_; }

  protected:
    void enterEvent(QEnterEvent*) override { hasPointer_ = true; }

    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// Whether pointer or focus is in the list; a menu of ours keeps them there.
    [[nodiscard]] bool isInUse() const;
    [[nodiscard]] bool hasFocusInside() const;
    /// The applications in the order to show them.
    [[nodiscard]] std::vector<AppInfo> orderedApps(const AppListViewModel& model,
                                                   bool isSameView) const;
    void notifyIfLeft();
    void rowsMoved();
    [[nodiscard]] bool acceptsPress() const;
    [[nodiscard]] std::vector<RowSlot> rowSlots(bool isSearching) const;
    [[nodiscard]] RowMotion motionTo(const std::vector<RowSlot>& slots, bool wereQuit) const;
    void bindRow(StackRow& row, const RowKey& key);
    void bindApp(StackRow& row, const AppInfo& app);
    void bindGroup(StackRow& row, const AppInfo& app);
    /// Scrolls a span of the list into view.
    void reveal(int top, int height);
    /// Tells the rows which part of the list is visible.
    void updateBand();

    Actions actions_;
    const Clock& clock_;
    RowStack* stack_;
    PressGuard guard_;
    bool hasPointer_ = false;
    bool hadFocus_ = false;
    /// Nothing has been shown since startOver().
    bool isFresh_ = true;
    /// Whether the user caused the rows' last move.
    bool isMoveByUser_ = false;
    std::string searchText_;
    SortOrder sortOrder_ = SortOrder::alphabetical;
    ResourceDisplay display_ = ResourceDisplay::cpuOnly;
    bool isForceQuit_ = false;
    bool toggledGroup_ = false;

    /// What the list shows, as last taken from the model.
    std::vector<AppInfo> apps_;
    std::vector<AppInfo> background_;
    std::map<RowKey, const AppInfo*> entries_;
    std::vector<RowSlot> slots_;
    /// The open groups, by process id; a group that leaves the list is forgotten.
    std::set<ProcessId> expanded_;
};

} // namespace calmora
