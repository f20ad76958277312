// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "platform/EventMonitor.h"
#include "platform/Platform.h"
#include "platform/Popover.h"
#include "support/Subscription.h"
#include "ui/AppListViewModel.h"
#include "ui/PopoverList.h"
#include "widgets/Theme.h"

#include <QWidget>

#include <functional>
#include <string>

namespace calmora {

class AppSettings;
class ExtraSettings;
class InputGate;
class CheckBox;
class DesktopExtension;
class ListNote;
class PopoverFooter;
class QuitAllButton;
class QuitTogether;
class ReopenList;
class SearchBox;

/// What the popover's content depends on. The references must outlive the view.
struct MenuPopoverSurroundings {
    Platform platform;
    EventMonitor& eventMonitor;
    Popover& popover;
    /// Called after each quit, which blocks the loop: a queued click would hit another row.
    InputGate& inputGate;
    /// Opens the settings window.
    std::function<void()> openSettings = nullptr;
    /// Gives the key of the text that says what cannot be listed on this desktop now; empty means
    /// nothing.
    std::function<std::string()> limitation = [] { return std::string(); };
    /// Starts applications again where quits run beside the loop; null for never.
    ReopenList* reopenList = nullptr;
    /// Offered where the list needs it; null where the desktop has none.
    DesktopExtension* extension = nullptr;
    /// Whether quits run beside the loop, by `together`, which the model uses, too; null for never.
    ExtraSettings* extras = nullptr;
    QuitTogether* together = nullptr;
};

/// The content of the popover: Quit All, select-all and search, the list of applications with the
/// background section, and the footer. While Option is held everything is in force mode. It
/// appears and disappears with the widget. A quit is made in the mode that its button showed when
/// it was pressed. Where quits run beside the loop, closing the popover cancels them.
/// Keyboard: Tab walks the controls and visits the list once, the arrows move in the list, Space
/// and Return press, typing starts the search; Escape empties the search, else it is left to the
/// window, which closes.
class MenuPopoverView final : public QWidget {
  public:
    MenuPopoverView(AppSettings& settings, AppListViewModel& viewModel,
                    MenuPopoverSurroundings surroundings, QWidget* parent = nullptr);
    ~MenuPopoverView() override;

    /// Whether the popover is in force mode.
    [[nodiscard]] bool isForceQuit() const { return isForceQuit_; }

    [[nodiscard]] QSize sizeHint() const override { return {Points{360}, Points{500}}; }

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

    /// The focus of the view itself is not shown, so nothing is repainted.
    void focusInEvent(QFocusEvent*) override {}

    void focusOutEvent(QFocusEvent*) override {}

    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    /// Creates the widgets, once for each size of the desktop's font.
    void build();
    void listen();
    /// Puts them into a column.
    void arrange();
    void appear();
    void disappear();

    /// Shows the model's values on the next turn of the loop, or at the next appearance.
    void markDirty();
    void rebuild();
    void showControls();
    [[nodiscard]] bool isButtonDown() const;

    void quitAll(bool force);
    void quitRow(AppInfo app, bool force);
    void quitAndReopen(AppInfo app, bool force);
    /// Asks before force. False also when the view has gone meanwhile.
    [[nodiscard]] bool confirmsQuit(const AppInfo& app, bool force);
    /// Null while the preferences do not want that applications are started again.
    [[nodiscard]] ReopenList* reopenList() const;
    void reopen();
    void quitMember(ProcessId pid, bool force);
    [[nodiscard]] bool quitsTogether() const;
    /// After a quit that has blocked; `hasLeft` tells whether anything is left.
    void finishQuit(bool hasLeft);
    void offerTogether();
    /// Brings a window of an application to the front in place of the popover.
    void showApp(ProcessId pid);
    /// What the footer says: the count of applications, or what the last quit came to.
    [[nodiscard]] QString statusText() const;

    AppSettings& settings_;
    AppListViewModel& viewModel_;
    MenuPopoverSurroundings surroundings_;

    QuitAllButton* quitAll_ = nullptr;
    CheckBox* selectAll_ = nullptr;
    SearchBox* search_ = nullptr;
    PopoverList* list_ = nullptr;
    ListNote* note_ = nullptr;
    PopoverFooter* footer_ = nullptr;

    double builtScale_ = 0;
    bool isForceQuit_ = false;
    bool isDirty_ = true;
    bool isScheduled_ = false;
    bool waitsForRelease_ = false;
    PopoverList::Removal removal_ = PopoverList::Removal::other;
    /// What a quit came to is shown until the popover opens the next time.
    bool showsResult_ = false;
    /// A quit has left something, so that quitting together is worth an offer.
    bool offersTogether_ = false;

    Subscription modelChanges_;
    Subscription settingsChanges_;
    Subscription neverQuitChanges_;
    Subscription willShow_;
    Subscription launched_;
    Subscription terminated_;
    Subscription quitFinishes_;
    Subscription showing_;
    Subscription reopenChanges_;
    Subscription eventMonitor_;
};

} // namespace calmora
