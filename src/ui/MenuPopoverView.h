#pragma once

#include "model/AppInfo.h"
#include "platform/EventMonitor.h"
#include "platform/Platform.h"
#include "platform/Popover.h"
#include "support/Subscription.h"
#include "ui/AppListViewModel.h"
#include "ui/RowLayout.h"

#include <QWidget>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QScrollArea;

namespace calmora {

class AppSettings;
class InputGate;
class CheckBox;
class Label;
class QuitAllButton;
class RowStack;
class SearchBox;
class StackRow;
class SymbolButton;

/// What the popover's content needs of its surroundings. The references must outlive the view.
struct MenuPopoverSurroundings {
    Platform platform;
    EventMonitor& eventMonitor;
    Popover& popover;
    /// Told after each quit: it blocks the loop, and a click that waited would hit another row.
    InputGate& inputGate;
    /// Opens the settings window.
    std::function<void()> openSettings = nullptr;
    /// Key of the text that says what this desktop keeps from the list; empty means nothing.
    std::string limitation = {};
};

/// The content of the popover: Quit All, select-all and search, the list of applications with the
/// background section, and the footer. While Option is held everything is in force mode. It
/// appears and disappears with the widget. A quit is made in the mode that its button showed when
/// it was pressed.
/// Keyboard: Tab walks the controls and visits the list once, the arrows move in the list, Space
/// and Return press, typing starts the search; Escape is left to the window, which closes.
class MenuPopoverView final : public QWidget {
  public:
    MenuPopoverView(AppSettings& settings, AppListViewModel& viewModel,
                    MenuPopoverSurroundings surroundings, QWidget* parent = nullptr);
    ~MenuPopoverView() override;

    /// Whether the popover is in force mode.
    [[nodiscard]] bool isForceQuit() const { return isForceQuit_; }

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

    /// It draws nothing of having the keyboard, so nothing is painted again.
    void focusInEvent(QFocusEvent*) override {}

    void focusOutEvent(QFocusEvent*) override {}

    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    class ListArea;

    /// Makes the widgets, once.
    void build();
    void listen();
    void appear();
    void disappear();

    /// Shows the model's values on the next turn of the loop, or at the next appearance.
    void markDirty();
    void rebuild();
    [[nodiscard]] std::vector<RowSlot> rowSlots() const;
    [[nodiscard]] RowMotion motionTo(const std::vector<RowSlot>& slots) const;
    void showControls();
    [[nodiscard]] bool isButtonDown() const;

    [[nodiscard]] std::unique_ptr<StackRow> makeRow(RowKind kind);
    void bindRow(StackRow& row, const RowKey& key);
    void bindApp(StackRow& row, const AppInfo& app);
    void bindGroup(StackRow& row, const AppInfo& app);

    [[nodiscard]] bool allSelected() const;
    void quitAll(bool force);
    void quitRow(const AppInfo& app, bool force);
    void quitBackground(ProcessId pid, bool force);

    AppSettings& settings_;
    AppListViewModel& viewModel_;
    MenuPopoverSurroundings surroundings_;

    QuitAllButton* quitAll_ = nullptr;
    CheckBox* selectAll_ = nullptr;
    SearchBox* search_ = nullptr;
    ListArea* area_ = nullptr;
    RowStack* stack_ = nullptr;
    Label* status_ = nullptr;
    SymbolButton* gear_ = nullptr;

    bool isForceQuit_ = false;
    bool isDirty_ = true;
    bool isScheduled_ = false;
    bool waitsForRelease_ = false;
    bool removedAfterQuit_ = false;
    bool toggledGroup_ = false;

    /// What the list shows, as last taken from the model.
    std::vector<AppInfo> shownApps_;
    std::vector<AppInfo> shownBackground_;
    std::map<RowKey, const AppInfo*> entries_;
    std::vector<RowSlot> slots_;
    /// The open groups, by process id; a group that leaves the list is forgotten.
    std::set<ProcessId> expanded_;

    Subscription modelChanges_;
    Subscription settingsChanges_;
    Subscription neverQuitChanges_;
    Subscription willShow_;
    Subscription launched_;
    Subscription terminated_;
    Subscription eventMonitor_;
};

} // namespace calmora
