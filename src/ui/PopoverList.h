// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "settings/AppSettings.h"
#include "ui/RowLayout.h"

#include <QScrollArea>
#include <QScrollBar>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace calmora {

class AppListViewModel;
class RowStack;
class StackRow;

/// The scrolling list of the popover: the applications, and below them the background section. At
/// most 400 high. Remembers which groups are open.
class PopoverList final : public QScrollArea {
  public:
    /// Called for the user's actions. `force` is the mode that the row showed.
    struct Actions {
        std::function<void(ProcessId)> toggle;
        std::function<void(ProcessId)> toggleWhitelist;
        std::function<void(const AppInfo&, bool force)> quit;
        /// Quits a member of a group.
        std::function<void(ProcessId, bool force)> quitMember;
        /// A group was opened or closed: the list must be shown again.
        std::function<void()> groupToggled;
    };

    PopoverList(Actions actions, QWidget* parent);

    /// Shows the model's present list. Rows glide if their number changed, slower after a quit.
    void showList(const AppListViewModel& model, ResourceDisplay display, bool isForceQuit,
                  bool removedAfterQuit);

    /// Lets the next list appear without motion.
    void startOver() { slots_.clear(); }

    void scrollToTop() { verticalScrollBar()->setValue(0); }

    /// Forwards a key that scrolls to the scroll bar.
    void scroll(QKeyEvent& event);

    [[nodiscard]] RowStack& rows() { return *stack_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    [[nodiscard]] std::vector<RowSlot> rowSlots(bool isSearching) const;
    [[nodiscard]] RowMotion motionTo(const std::vector<RowSlot>& slots,
                                     bool removedAfterQuit) const;
    void bindRow(StackRow& row, const RowKey& key);
    void bindApp(StackRow& row, const AppInfo& app);
    void bindGroup(StackRow& row, const AppInfo& app);
    /// Scrolls a span of the list into view.
    void reveal(int top, int height);
    /// Tells the rows which part of the list is visible.
    void updateBand();

    Actions actions_;
    RowStack* stack_;
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
