// SPDX-License-Identifier: MIT
#include "support/QtWaiting.h"
#include "ui/PopoverFixture.h"
#include "ui/RowStack.h"

namespace calmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using namespace std::chrono_literals;

constexpr auto accessory = ActivationPolicy::accessory;

class MenuPopoverViewTest : public testing::Test, public PopoverFixture {
  protected:
    /// Shows the window as a popover does.
    void show() {
        machine.popover.willShow.emit();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    /// Handles what is queued, and what that queues.
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    static void click(QWidget& widget) {
        QTest::mouseClick(&widget, Qt::LeftButton);
        settle();
    }

    /// Lets every motion of the rows end.
    void rest() {
        settle();
        EXPECT_TRUE(loopUntil([this] {
            return std::ranges::none_of(view->findChildren<QWidget*>(), [](QWidget* widget) {
                const auto* stack = dynamic_cast<RowStack*>(widget);
                return stack != nullptr && stack->isMoving();
            });
        }));
    }

    QAbstractButton& button(const char* name) { return *view->findChild<QAbstractButton*>(name); }

    QLineEdit& search() { return *view->findChild<QLineEdit*>("search"); }

    /// The shown rows from top to bottom.
    QList<QWidget*> rowWidgets() {
        QList<QWidget*> rows = view->findChildren<QWidget*>("appRow");
        rows.removeIf([](const QWidget* row) { return !row->isVisible(); });
        std::ranges::sort(rows, {}, [this](auto* row) { return row->mapTo(view, QPoint()).y(); });
        return rows;
    }

    static std::string nameOf(const QWidget* row) {
        return row->accessibleName().section(", ", 0, 0).toStdString();
    }

    /// What the rows say, without their figures.
    std::vector<std::string> rows() {
        std::vector<std::string> names;
        for (const QWidget* row : rowWidgets()) {
            names.push_back(nameOf(row));
        }
        return names;
    }

    QAbstractButton& rowButton(const std::string& name, const char* what) {
        for (QWidget* row : rowWidgets()) {
            if (nameOf(row) == name) {
                return *row->findChild<QAbstractButton*>(what);
            }
        }
        throw std::out_of_range("no row " + name);
    }

    void hold(std::uint32_t keys) {
        machine.events.flags.emit({keys});
        settle();
    }

    void launchThree() {
        launch(1, "Alpha");
        launch(2, "Beta");
        launch(3, "Gamma");
    }
};

TEST_F(MenuPopoverViewTest, WorksOnlyWhileItIsShown) {
    launchThree();
    settle();
    EXPECT_EQ(machine.workspace.lists, 0);
    EXPECT_THAT(view->findChildren<QWidget*>(), IsEmpty());
    EXPECT_FALSE(machine.workspace.launched.hasListeners());

    show();
    EXPECT_THAT(machine.runLoop.timers(), ElementsAre(3s));
    EXPECT_THAT(rows(), ElementsAre("Alpha", "Beta", "Gamma"));
    launch(4, "Delta");
    machine.processes.end(2);
    machine.runLoop.turn();
    rest();
    EXPECT_THAT(rows(), ElementsAre("Alpha", "Delta", "Gamma"));
    hold(ModifierFlags::option | ModifierFlags::shift);
    EXPECT_TRUE(view->isForceQuit());
    window.hide();
    EXPECT_THAT(machine.runLoop.timers(), IsEmpty());
    EXPECT_FALSE(machine.workspace.launched.hasListeners());
    EXPECT_FALSE(machine.events.flags.hasListeners());
    show();
    EXPECT_FALSE(view->isForceQuit());

    settings.addToNeverQuit("org.example.Gamma");
    click(button("selectAll"));
    EXPECT_EQ(view->findChild<QLabel*>("status")->text(), "3 apps · 1 protected");
    EXPECT_FALSE(button("selectAll").isChecked());
    EXPECT_FALSE(button("quitAll").isEnabled());
    click(rowButton("Delta", "tick"));
    EXPECT_TRUE(button("quitAll").isEnabled());
}

TEST_F(MenuPopoverViewTest, OffersTheExtensionInPlaceOfWhatTheListLacks) {
    using State = DesktopExtension::State;
    limitation = "This desktop does not tell which applications run, so only X11 ones are listed.";
    extension.now = State::offered;
    show();
    const auto* note = view->findChild<QLabel*>("limitation");
    EXPECT_EQ(note->text().toStdString(), extension.purpose());
    click(button("enableExtension"));
    click(button("declineExtension"));
    EXPECT_EQ(extension.asked, "red");
    extension.become(State::declined);
    EXPECT_EQ(note->text().toStdString(), limitation);
    EXPECT_FALSE(button("enableExtension").isVisible());
    limitation.clear();
    extension.become(State::running);
    EXPECT_FALSE(note->isVisible());
}

TEST_F(MenuPopoverViewTest, QuitsPolitelyWithoutAQuestion) {
    launchThree();
    machine.workspace.at(2).endsAfterTerminate.reset();
    show();
    click(button("quitAll"));
    EXPECT_THAT(machine.alerts.shown, IsEmpty());
    EXPECT_THAT(machine.workspace.terminateRequests, ElementsAre(1, 2, 3));
    EXPECT_THAT(machine.workspace.forceRequests, IsEmpty());
    EXPECT_EQ(inputGate.discards, 1);
    rest();
    EXPECT_THAT(rows(), ElementsAre("Beta"));
    click(rowButton("Beta", "quit"));
    EXPECT_EQ(inputGate.discards, 2);
}

TEST_F(MenuPopoverViewTest, AsksBeforeForceAndKeepsTheModeOfThePress) {
    launchThree();
    machine.workspace.at(2).icon = Image{"mail", {}, {}};
    show();
    hold(ModifierFlags::option);
    click(button("quitAll"));
    click(rowButton("Beta", "quit"));
    ASSERT_THAT(machine.alerts.shown, SizeIs(2));
    EXPECT_EQ(machine.alerts.shown[1].icon, (Image{"mail", {}, {}}));
    EXPECT_THAT(machine.workspace.forceRequests, IsEmpty());
    EXPECT_THAT(machine.workspace.terminateRequests, IsEmpty());

    // Option is let go while the question is open: it stays a forced quit.
    machine.alerts.answers = {0, 0};
    machine.alerts.onShow = [this] { hold(0); };
    click(rowButton("Beta", "quit"));
    EXPECT_THAT(machine.workspace.forceRequests, ElementsAre(2));

    // It is let go between press and release.
    hold(ModifierFlags::option);
    QTest::mousePress(&button("quitAll"), Qt::LeftButton);
    hold(0);
    EXPECT_EQ(button("quitAll").text(), "Force Quit All");
    QTest::mouseRelease(&button("quitAll"), Qt::LeftButton);
    EXPECT_THAT(machine.workspace.forceRequests, ElementsAre(2, 1, 3));
    EXPECT_THAT(machine.workspace.terminateRequests, IsEmpty());
}

TEST_F(MenuPopoverViewTest, AClickActsOnTheRowThatWasDrawnAtThePress) {
    launchThree();
    show();
    QAbstractButton& quit = rowButton("Alpha", "quit");
    QTest::mousePress(&quit, Qt::LeftButton);
    launch(4, "Aardvark");
    machine.runLoop.turn();
    rest();
    EXPECT_EQ(rows().front(), "Alpha");
    QTest::mouseRelease(&quit, Qt::LeftButton);
    EXPECT_THAT(machine.workspace.terminateRequests, ElementsAre(1));
    rest();
    EXPECT_THAT(rows(), ElementsAre("Aardvark", "Beta", "Gamma"));
}

TEST_F(MenuPopoverViewTest, GroupsBackgroundApplications) {
    launchThree();
    launch(21, "Helper", accessory, 1);
    launch(22, "Agent", accessory, 1);
    launch(30, "Zed", accessory);
    show();
    settings.viewBackgroundApps.set(true);
    rest();
    EXPECT_THAT(rows(), ElementsAre("Alpha", "Beta", "Gamma", "Zed"));
    click(button("groupHeader"));
    rest();
    EXPECT_THAT(rows(), ElementsAre("Alpha", "Beta", "Gamma", "Agent", "Helper", "Zed"));
}

TEST_F(MenuPopoverViewTest, SearchesWhereverTheUserTypes) {
    launchThree();
    show();
    QTest::keyClicks(view, "g");
    QTest::keyClicks(QApplication::focusWidget(), "am");
    rest();
    EXPECT_THAT(rows(), ElementsAre("Gamma"));
    QTest::keyClicks(QApplication::focusWidget(), "x");
    rest();
    EXPECT_TRUE(view->findChild<QWidget*>("emptyState")->isVisible());
    EXPECT_EQ(button("quitAll").toolTip(), "Quits 3 applications, 3 of them hidden by the search");
    // Escape empties the field; the next one is the window's.
    const auto escapes = [&] {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
        QApplication::sendEvent(QApplication::focusWidget(), &escape);
        return !escape.isAccepted();
    };
    EXPECT_FALSE(escapes());
    EXPECT_EQ(model.searchText(), "");
    EXPECT_TRUE(escapes());
}

TEST_F(MenuPopoverViewTest, KeepsRowsInPlaceWhileTheListIsUsed) {
    launchThree();
    settings.sortOrder.set(SortOrder::cpuUsage);
    show();
    const auto busy = [&](ProcessId pid) {
        machine.clock.advance(1s);
        machine.processes.at(pid).counters->userTime += 900'000'000;
        model.updateResourceUsage();
        settle();
        return rows();
    };
    EXPECT_THAT(busy(2), ElementsAre("Beta", "Alpha", "Gamma"));
    QCursor::setPos(rowWidgets()[1]->mapToGlobal(QPoint(5, 5)));
    settle();
    EXPECT_THAT(busy(3), ElementsAre("Beta", "Alpha", "Gamma"));
    launch(4, "Delta");
    machine.runLoop.turn();
    rest();
    busy(4);
    EXPECT_THAT(busy(4), ElementsAre("Beta", "Alpha", "Gamma", "Delta"));
    QCursor::setPos(view->mapToGlobal(QPoint(5, 5)));
    settle();
    EXPECT_THAT(rows(), ElementsAre("Delta", "Alpha", "Beta", "Gamma"));

    rowButton("Gamma", "tick").setFocus();
    EXPECT_THAT(busy(3), ElementsAre("Delta", "Alpha", "Beta", "Gamma"));
    search().setFocus();
    settle();
    EXPECT_THAT(rows(), ElementsAre("Gamma", "Alpha", "Beta", "Delta"));
}

TEST_F(MenuPopoverViewTest, APressOnWhatHasJustComeUnderThePointerDoesNothing) {
    launchThree();
    show();
    const QPoint second = rowWidgets()[1]->mapToGlobal(QPoint(5, 5));
    QCursor::setPos(second);
    settle();
    launch(4, "Aardvark");
    machine.runLoop.turn();
    rest();
    EXPECT_EQ(rows()[1], "Alpha");
    for (const char* what : {"quit", "tick"}) {
        click(rowButton("Alpha", what));
    }
    EXPECT_THAT(machine.workspace.terminateRequests, IsEmpty());
    EXPECT_TRUE(model.apps()[1].isSelected);
    machine.clock.advance(250ms);
    click(rowButton("Alpha", "quit"));
    EXPECT_THAT(machine.workspace.terminateRequests, ElementsAre(1));
    rest();
    // The user moved the rows: the next click counts.
    click(rowButton("Beta", "quit"));
    EXPECT_THAT(machine.workspace.terminateRequests, ElementsAre(1, 2));
}

TEST_F(MenuPopoverViewTest, IsReachableByKeyboard) {
    launchThree();
    settings.addToNeverQuit("org.example.Gamma");
    show();
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    const auto focus = [] { return QApplication::focusWidget()->objectName().toStdString(); };
    for (const char* next :
         {"quitAll", "selectAll", "search", "tick", "quit", "openSettings", "quitAll"}) {
        press(Qt::Key_Tab);
        EXPECT_EQ(focus(), next);
    }
    press(Qt::Key_Backtab);
    press(Qt::Key_Return);
    EXPECT_EQ(settingsOpened, 1);

    search().setFocus();
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_FALSE(model.apps()[0].isSelected);
    press(Qt::Key_Tab);
    press(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &rowButton("Beta", "quit"));
    // The row goes and its neighbour gets the focus, as a whole because it is protected.
    press(Qt::Key_Return);
    EXPECT_THAT(machine.workspace.terminateRequests, ElementsAre(2));
    settle();
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Gamma, Protected");
    press(Qt::Key_Up);
    EXPECT_EQ(QApplication::focusWidget(), &rowButton("Alpha", "tick"));
    press(Qt::Key_Up);
    EXPECT_EQ(focus(), "search");
    for (QWidget* child : view->findChildren<QWidget*>()) {
        if (child->focusPolicy() != Qt::NoFocus && child->isVisible()) {
            EXPECT_FALSE(
                QAccessible::queryAccessibleInterface(child)->text(QAccessible::Name).isEmpty())
                << qPrintable(child->objectName());
        }
    }
    QAccessible::queryAccessibleInterface(rowWidgets().front())
        ->actionInterface()
        ->doAction("protect");
    EXPECT_TRUE(settings.neverQuitApps().contains("org.example.Alpha"));
}

TEST_F(MenuPopoverViewTest, CreatesOnlyVisibleRows) {
    for (ProcessId pid = 1000; pid < 1500; ++pid) {
        launch(pid, "App " + std::to_string(pid));
    }
    show();
    auto* bar = view->findChild<QScrollArea*>("list")->verticalScrollBar();
    bar->setValue(bar->maximum());
    EXPECT_EQ(rows().back(), "App 1499");
    EXPECT_LT(view->findChildren<QWidget*>("appRow").size(), 14);
}

TEST_F(MenuPopoverViewTest, ShowsHowQuitsGoThatRunBesideIt) {
    for (const ProcessId pid : {1, 2}) {
        machine.workspace.launch({.pid = pid,
                                  .name = pid == 1 ? "Asks" : "Ends",
                                  .process = {.counters = ProcessCounters{0, 0, 9U << 20U}},
                                  .endsAfterTerminate = 100ms});
    }
    machine.workspace.at(1).endsAfterTerminate.reset();
    const auto pass = [this](std::chrono::milliseconds time) {
        machine.runLoop.advance(time);
        rest();
    };
    const auto status = [this] { return view->findChild<QLabel*>("status")->text().toStdString(); };
    show();
    click(button("quitAll"));
    pass(0ms);
    EXPECT_EQ(machine.clock.slept, 1600ms) << "switched off: one after the other, as ever";
    EXPECT_THAT(rows(), ElementsAre("Asks"));
    EXPECT_TRUE(button("acceptOffer").isVisible());
    click(button("acceptOffer"));
    EXPECT_TRUE(extras.quitsTogether() && extras.wasQuittingTogetherOffered());
    EXPECT_FALSE(button("acceptOffer").isVisible());

    machine.workspace.launch({.pid = 3, .name = "Ends", .endsAfterTerminate = 100ms});
    machine.workspace.at(1).isAsking = true;
    pass(0ms);
    click(button("quitAll"));
    pass(1ms);
    EXPECT_EQ(rowWidgets()[1]->accessibleName(), "Ends, Quitting…");
    EXPECT_FALSE(rowButton("Ends", "quit").isEnabled());
    EXPECT_TRUE(machine.popover.staysOpen());
    QCursor::setPos(rowWidgets()[1]->mapToGlobal(QPoint(5, 5)));
    pass(1500ms);
    EXPECT_EQ(machine.clock.slept, 1600ms);
    EXPECT_EQ(status(), "1 quit, 1 left");
    EXPECT_FALSE(machine.popover.staysOpen());
    EXPECT_EQ(rowWidgets().front()->accessibleName(), "Asks, Asks to save");
    click(rowButton("Asks", "reason"));
    machine.runLoop.turn();
    EXPECT_FALSE(machine.workspace.frontmostApplication()) << "another row was there just now";
    pass(300ms);
    click(rowButton("Asks", "reason"));
    machine.runLoop.turn();
    EXPECT_EQ(machine.workspace.frontmostApplication()->processIdentifier, 1);

    click(rowButton("Asks", "quit"));
    machine.runLoop.turn();
    EXPECT_TRUE(together.isUnderWay());
    window.hide();
    EXPECT_FALSE(together.isUnderWay()) << "closing cancels";
    show();
    settle();
    EXPECT_NE(status(), "1 quit, 1 left");

    reopening.remember({{.pid = 9, .name = "Gone", .desktopId = "gone"}});
    window.hide();
    show();
    settle();
    click(button("reopen"));
    EXPECT_THAT(launcher.launched, ElementsAre("gone"));
    EXPECT_FALSE(button("reopen").isVisible());
}

TEST_F(MenuPopoverViewTest, OffersToReopenInTheMenuOfARowOnlyWhereThatIsPossible) {
    machine.workspace.launch({.pid = 1, .name = "Able", .desktopId = "able"});
    machine.workspace.launch({.pid = 2, .name = "Bare"});
    machine.workspace.launch(
        {.pid = 3, .name = "Stay", .desktopId = "stay", .endsAfterTerminate = {}});
    show();
    // Opens the menu of a row: its titles. Chooses its last item if it has several.
    const auto menu = [&](qsizetype at, bool isChosen = false) {
        QWidget* row = rowWidgets().at(at);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QCoreApplication::sendEvent(row, &event);
        auto* shown = row->findChild<QMenu*>("rowMenu");
        std::vector<std::string> titles;
        for (const QAction* action : shown->actions()) {
            titles.push_back(action->text().toStdString());
        }
        if (isChosen) {
            shown->actions().back()->trigger();
        }
        delete shown;
        machine.runLoop.advance(std::chrono::seconds(2));
        settle();
        return titles;
    };
    const std::string protects = "Never Quit This App";
    EXPECT_THAT(menu(0), ElementsAre(protects)) << "nothing new before it is switched on";
    extras.quitsTogether.set(true);
    EXPECT_THAT(menu(1), ElementsAre(protects)) << "no desktop file";
    EXPECT_THAT(menu(2, true), ElementsAre(protects, "Quit and Reopen"));
    EXPECT_THAT(launcher.launched, IsEmpty()) << "it stayed";
    menu(0, true);
    EXPECT_THAT(launcher.launched, ElementsAre("able"));
    rest();
    hold(ModifierFlags::option);
    EXPECT_THAT(menu(1, true), ElementsAre(protects, "Force Quit and Reopen"));
    EXPECT_THAT(machine.workspace.forceRequests, IsEmpty()) << "the question was refused";
    machine.alerts.answers = {0};
    menu(1, true);
    EXPECT_THAT(launcher.launched, ElementsAre("able", "stay"));
}

} // namespace
} // namespace calmora
