#include "settings/SettingsFixture.h"

#include "platform/qt/QtLocalizedStrings.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

namespace calmora {
namespace {

struct GeneralSettingsTest : testing::Test, SettingsFixture {
    /// A child of the window or of its sheet; throws if there is none.
    template <typename Widget>
    Widget& child(const char* name) const {
        auto* found = window.findChild<Widget*>(name);
        if (!found) {
            throw std::runtime_error(name);
        }
        return *found;
    }

    [[nodiscard]] QAbstractButton& button(const char* name) const {
        return child<QAbstractButton>(name);
    }

    [[nodiscard]] QComboBox& picker(const char* name) const { return child<QComboBox>(name); }

    static void click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }

    /// Lets removed rows be deleted.
    static void settle() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    /// The applications in rows with this object name.
    [[nodiscard]] QStringList names(const char* rows) const {
        QStringList texts;
        for (const QWidget* row : window.findChildren<QWidget*>(rows)) {
            texts += row->findChild<QLabel*>("appName")->text();
        }
        return texts;
    }
};

TEST_F(GeneralSettingsTest, EverySwitchEditsAndShowsItsPreference) {
    settings.viewBackgroundApps.set(true);
    open();
    std::map<std::string, bool> before;
    for (const char* name : {"openAtLogin", "playSounds", "neverQuitMusicApps",
                             "deselectAppsByDefault", "includeFinderWindows",
                             "groupBackgroundInstances", "viewBackgroundApps", "autoQuitEnabled"}) {
        QAbstractButton& control = button(name);
        before[name] = machine.defaults.boolean(name);
        EXPECT_EQ(control.isChecked(), before[name]) << name;
        click(control);
        EXPECT_EQ(machine.defaults.stored.at(name), DefaultsValue(!before[name]));
        QTest::keyClick(&control, Qt::Key_Space);
        QTest::keyClick(&control, Qt::Key_Return);
        EXPECT_EQ(machine.defaults.boolean(name), !before[name]) << name;
    }
    settings.resetToDefaults();
    for (const auto& [name, checked] : before) {
        EXPECT_EQ(button(name.c_str()).isChecked(), checked && name != "viewBackgroundApps")
            << name;
    }
}

TEST_F(GeneralSettingsTest, APickerEditsItsPreferenceButNotByWheel) {
    settings.autoQuitEnabled.set(true);
    open();
    for (const auto& [name, last] : {std::pair("sortOrder", DefaultsValue("memoryUsage")),
                                     {"resourceDisplay", DefaultsValue("none")},
                                     {"defaultQuitMode", DefaultsValue("force")},
                                     {"autoQuitMinutes", DefaultsValue(std::int64_t{480})}}) {
        QComboBox& control = picker(name);
        QTest::keyClick(&control, Qt::Key_End);
        EXPECT_EQ(machine.defaults.stored.at(name), last) << name;
        QWheelEvent wheel(QPointF(5, 5), control.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&control, &wheel);
        EXPECT_EQ(control.currentIndex(), control.count() - 1) << name;
    }
    settings.resetToDefaults();
    EXPECT_EQ(picker("resourceDisplay").currentText(), "CPU Only");
}

TEST_F(GeneralSettingsTest, ArrowsScrollAndNeverLeadIntoAPicker) {
    settings.autoQuitEnabled.set(true);
    open();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* bar = view->findChild<QScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum() / 2);
    const auto stored = machine.defaults.stored;
    for (const char* name : {"viewBackgroundApps", "autoQuitEnabled", "resetAllSettings"}) {
        QAbstractButton& control = button(name);
        control.setFocus();
        for (const auto& [key, moves] : {std::pair(Qt::Key_Up, -1), {Qt::Key_Down, 1}}) {
            const int before = bar->value();
            QTest::keyClick(&control, key);
            EXPECT_TRUE(control.hasFocus()) << name;
            EXPECT_GT((bar->value() - before) * moves, 0) << name << " " << moves;
        }
    }
    EXPECT_EQ(machine.defaults.stored, stored);
    QTest::keyClick(&picker("sortOrder"), Qt::Key_Return);
    EXPECT_TRUE(picker("sortOrder").view()->isVisible());
}

TEST_F(GeneralSettingsTest, KeepsMinutesThatItDoesNotOffer) {
    settings.autoQuitMinutes.set(45);
    open();
    EXPECT_EQ(picker("autoQuitMinutes").currentIndex(), -1);
    EXPECT_FALSE(picker("autoQuitMinutes").isEnabled());
    click(button("autoQuitEnabled"));
    EXPECT_TRUE(picker("autoQuitMinutes").isEnabled());
    EXPECT_EQ(settings.autoQuitMinutes(), 45);
    QTest::keyClick(&picker("autoQuitMinutes"), Qt::Key_Down);
    EXPECT_EQ(settings.autoQuitMinutes(), 5);
}

TEST_F(GeneralSettingsTest, DisablesASwitchThatDependsOnAnother) {
    open();
    EXPECT_FALSE(button("groupBackgroundInstances").isEnabled());
    click(button("viewBackgroundApps"));
    EXPECT_TRUE(button("groupBackgroundInstances").isEnabled());
}

TEST_F(GeneralSettingsTest, SwitchesTheUpdatersOwnChecks) {
    updater.isAutomatic = true;
    open();
    QAbstractButton& control = button("automaticallyChecksForUpdates");
    EXPECT_TRUE(control.isChecked());
    click(control);
    EXPECT_FALSE(updater.isAutomatic);
    settings.resetToDefaults();
    EXPECT_FALSE(updater.isAutomatic);
}

TEST_F(GeneralSettingsTest, DisablesTheSwitchWithoutAnUpdater) {
    UnavailableUpdater none;
    open(none);
    EXPECT_FALSE(button("automaticallyChecksForUpdates").isEnabled());
    EXPECT_EQ(child<QLabel>("updatesUnavailable").text(), "update_packaged") << "untranslated here";
}

TEST_F(GeneralSettingsTest, EditsTheNeverQuitList) {
    machine.workspace.installed["org.example.Two"] = {"bravo<b>\n\u200E&", std::nullopt, {}};
    open();
    EXPECT_TRUE(child<QWidget>("neverQuitEmpty").isVisible());
    EXPECT_FALSE(child<QWidget>("neverQuitCount").isVisible());
    for (const char* identifier : {"com.jetbrains.charlie", "org.example.Two", "Alpha"}) {
        settings.addToNeverQuit(identifier);
    }
    settle();
    EXPECT_EQ(names("neverQuitRow"), (QStringList{"Alpha", "bravo<b> &", "charlie"}));
    EXPECT_EQ(child<QLabel>("neverQuitCount").text(), "3");
    EXPECT_TRUE(child<QLabel>("neverQuitCount").isVisible());
    EXPECT_FALSE(child<QWidget>("neverQuitEmpty").isVisible());

    // By keyboard: the focus moves to the next button, and from the last one to "Add App".
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.findChildren<QAbstractButton*>("removeFromNeverQuit").value(1)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_EQ(settings.neverQuitApps(), (std::set<std::string>{"Alpha", "com.jetbrains.charlie"}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    settle();
    EXPECT_EQ(button("removeFromNeverQuit").toolTip(), "Remove from never-quit list");
    click(button("removeFromNeverQuit"));
    settle();
    EXPECT_TRUE(settings.neverQuitApps().empty());
    EXPECT_TRUE(child<QWidget>("neverQuitEmpty").isVisible());
    EXPECT_FALSE(child<QWidget>("neverQuitCount").isVisible());
}

TEST_F(GeneralSettingsTest, TabFollowsTheOrderOfTheRows) {
    for (const char* identifier : {"a", "b", "c"}) {
        settings.addToNeverQuit(identifier);
    }
    open();
    settings.addToNeverQuit("aa");
    settle();
    QString visited;
    QWidget* at = &button("addApp");
    do {
        at = at->nextInFocusChain();
        if (at->objectName() == "removeFromNeverQuit") {
            visited += at->accessibleDescription() + " ";
        }
    } while (at->objectName() != "includeFinderWindows" && at != &button("addApp"));
    EXPECT_EQ(visited, "a aa b c ");
}

TEST_F(GeneralSettingsTest, AddsRunningApplicationsInASheet) {
    settings.addToNeverQuit("org.example.Known");
    machine.workspace.launch({.pid = 1, .name = "zoo", .bundleIdentifier = "org.example.Zoo"});
    machine.workspace.launch({.pid = 2, .bundleIdentifier = "nameless"});
    machine.workspace.launch({.pid = 3, .name = "Known", .bundleIdentifier = "org.example.Known"});
    open();
    click(button("addApp"));
    ASSERT_TRUE(view->showingAddAppSheet());
    auto& sheet = child<QDialog>("addAppSheet");
    EXPECT_EQ(sheet.windowModality(), Qt::WindowModal);
    EXPECT_EQ(names("candidate"), (QStringList{"Unknown", "Known", "zoo"}));
    const auto isAdded = [&](int row) {
        const QWidget* candidate = sheet.findChildren<QWidget*>("candidate").value(row);
        const bool added = candidate->findChild<QWidget*>("added")->isVisible();
        EXPECT_NE(added, candidate->findChild<QWidget*>("add")->isVisible());
        return added;
    };
    EXPECT_FALSE(isAdded(0));
    EXPECT_TRUE(isAdded(1));
    click(*sheet.findChildren<QWidget*>("add").value(2));
    EXPECT_TRUE(isAdded(2));
    EXPECT_TRUE(settings.neverQuitApps().contains("org.example.Zoo"));
    settings.removeFromNeverQuit("org.example.Known");
    EXPECT_FALSE(isAdded(1));
    EXPECT_TRUE(sheet.isVisible()) << "it stays open";

    const QPointer<QDialog> watched(&sheet);
    QTest::keyClick(&sheet, Qt::Key_Escape);
    settle();
    EXPECT_TRUE(watched.isNull());
    EXPECT_FALSE(view->showingAddAppSheet());
}

TEST_F(GeneralSettingsTest, CreatesOnlyVisibleCandidates) {
    for (ProcessId process = 1; process <= 500; ++process) {
        const std::string name = "app " + std::to_string(1000 + process);
        machine.workspace.launch({.pid = process, .name = name, .bundleIdentifier = name});
    }
    open();
    click(button("addApp"));
    EXPECT_LT(names("candidate").size(), 20);
    auto* bar = child<QDialog>("addAppSheet").findChild<QScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum());
    EXPECT_TRUE(names("candidate").contains("app 1500"));
    EXPECT_LT(names("candidate").size(), 40);
}

TEST_F(GeneralSettingsTest, ClipsNothingWithLargerTexts) {
    const QtLocalizedStrings german{QLocale(QLocale::German)}; // Long words.
    const QFont usual = QApplication::font();
    for (const int points : {10, 15, 20, 24}) {
        QFont larger = usual;
        larger.setPointSize(points);
        QApplication::setFont(larger);
        SettingsFixture pane;
        pane.settings.addToNeverQuit(std::string(300, 'm'));
        pane.open();
        settle();
        settle(); // A row that wraps its parts asks for more height.
        QWidget* form = pane.window.findChild<QScrollArea*>()->widget();
        EXPECT_LE(form->width(), pane.window.width()) << points;
        for (const QWidget* part : form->findChildren<QWidget*>()) {
            if (part->isVisible() && part->window() == &pane.window) {
                EXPECT_GE(part->width(), part->minimumSizeHint().width())
                    << points << part->objectName().toStdString();
                EXPECT_TRUE(!part->sizePolicy().hasHeightForWidth() ||
                            part->height() >= part->heightForWidth(part->width()))
                    << points << part->objectName().toStdString();
            }
        }
    }
    QApplication::setFont(usual);
}

} // namespace
} // namespace calmora
