// SPDX-License-Identifier: MIT
#include "settings/SettingsFixture.h"
#include "settings/WindowKeys.h"

namespace calmora {
namespace {

using namespace std::chrono_literals;

struct GeneralSettingsTest : testing::Test, SettingsFixture {
    [[nodiscard]] QAbstractButton& button(const char* name) const {
        return *window.findChild<QAbstractButton*>(name);
    }

    [[nodiscard]] QComboBox& picker(const char* name) const {
        return *window.findChild<QComboBox*>(name);
    }

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
    open();
    EXPECT_FALSE(button("groupBackgroundInstances").isEnabled()) << "before the one it needs";
    for (const char* name : {"viewBackgroundApps", "groupBackgroundInstances", "openAtLogin",
                             "playSounds", "neverQuitMusicApps", "deselectAppsByDefault",
                             "includeFinderWindows", "autoQuitEnabled"}) {
        QAbstractButton& control = button(name);
        const bool before = machine.defaults.boolean(name);
        EXPECT_EQ(control.isChecked(), before) << name;
        click(control);
        EXPECT_EQ(machine.defaults.stored.at(name), DefaultsValue(!before));
        QTest::keyClick(&control, Qt::Key_Space);
        EXPECT_EQ(machine.defaults.boolean(name), before) << name;
        QTest::keyClick(&control, Qt::Key_Return);
    }
    settings.resetToDefaults();
    EXPECT_TRUE(button("neverQuitMusicApps").isChecked());
    EXPECT_FALSE(button("openAtLogin").isChecked());
}

TEST_F(GeneralSettingsTest, SaysWhileSettingsCannotBeSaved) {
    open();
    const auto* note = window.findChild<QLabel*>("settingsNotSaved");
    for (const std::optional<std::string> file : {{}, std::optional("/a\n%@ folder"), {}}) {
        machine.defaults.unusable = file;
        machine.defaults.usability.emit();
        EXPECT_EQ(note->isVisible(), file.has_value());
        EXPECT_EQ(note->text().contains("/a %@ folder"), file.has_value());
    }
}

TEST_F(GeneralSettingsTest, EnablesTheExtensionOfTheDesktop) {
    using State = DesktopExtension::State;
    open();
    QAbstractButton& enable = button("enableExtension");
    for (const auto& [state, isShown, canEnable] : {std::tuple(State::none, false, false),
                                                    {State::declined, true, true},
                                                    {State::forbidden, true, false},
                                                    {State::awaitsLogin, true, false},
                                                    {State::offered, true, true},
                                                    {State::running, true, false}}) {
        extension.become(state);
        EXPECT_EQ(window.findChild<QLabel*>("extensionState")->isVisible(), isShown);
        EXPECT_EQ(enable.isVisible(), canEnable);
    }
    extension.become(State::declined);
    click(enable);
    EXPECT_EQ(extension.asked, "re");
}

TEST_F(GeneralSettingsTest, APickerEditsItsPreference) {
    settings.autoQuitMinutes.set(45);
    open();
    EXPECT_FALSE(picker("autoQuitMinutes").isEnabled());
    click(button("autoQuitEnabled"));
    EXPECT_EQ(picker("autoQuitMinutes").currentIndex(), -1) << "not offered";
    EXPECT_EQ(settings.autoQuitMinutes(), 45);
    for (const auto& [name, last] : {std::pair("sortOrder", DefaultsValue("memoryUsage")),
                                     {"resourceDisplay", DefaultsValue("none")},
                                     {"defaultQuitMode", DefaultsValue("force")},
                                     {"autoQuitMinutes", DefaultsValue(std::int64_t{480})}}) {
        QComboBox& control = picker(name);
        QTest::keyClick(&control, Qt::Key_End);
        EXPECT_EQ(machine.defaults.stored.at(name), last) << name;
    }

    answerMenuKeys(window);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto pressEscape = [&] {
        const QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick((popup ? popup : &window)->windowHandle(), Qt::Key_Escape);
    };
    picker("sortOrder").showPopup();
    pressEscape();
    EXPECT_FALSE(QApplication::activePopupWidget());
    EXPECT_TRUE(window.isVisible()) << "the key has closed the list";
    pressEscape();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(GeneralSettingsTest, EditsTheNeverQuitList) {
    machine.workspace.installed["org.example.Two"] = {"bravo<b>\n\u200E&", std::nullopt, {}};
    open();
    for (const char* identifier : {"com.jetbrains.charlie", "org.example.Two", "Alpha"}) {
        settings.addToNeverQuit(identifier);
    }
    settle();
    EXPECT_EQ(names("neverQuitRow"), (QStringList{"Alpha", "bravo<b> &", "charlie"}));
    EXPECT_FALSE(window.findChild<QWidget*>("neverQuitEmpty")->isVisible());

    // By keyboard: the focus moves to the next button, and from the last one to "Add App".
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.findChildren<QAbstractButton*>("removeFromNeverQuit").value(1)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_EQ(settings.neverQuitApps(), (std::set<std::string>{"Alpha", "com.jetbrains.charlie"}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    settle();
    click(button("removeFromNeverQuit"));
    settle();
    EXPECT_TRUE(settings.neverQuitApps().empty());
    EXPECT_TRUE(window.findChild<QWidget*>("neverQuitEmpty")->isVisible());
}

TEST_F(GeneralSettingsTest, OffersOnceToSpareWhatIsInUse) {
    open();
    const auto* offer = window.findChild<QWidget*>("sparingOffer");
    for (const char* answer : {"declineSparing", "acceptSparing"}) {
        EXPECT_FALSE(offer->isVisible()) << "auto-quit is off";
        click(button("autoQuitEnabled"));
        EXPECT_TRUE(offer->isVisible());
        settle();
        click(button(answer));
        EXPECT_FALSE(offer->isVisible());
        EXPECT_EQ(extras.sparesWhatIsInUse(), answer == std::string("acceptSparing"));
        EXPECT_TRUE(extras.wasSparingOffered());
        click(button("resetAllSettings"));
        EXPECT_FALSE(extras.sparesWhatIsInUse() || extras.wasSparingOffered());
    }
}

TEST_F(GeneralSettingsTest, TheSheetSaysWhatAutoQuitWillDoWhileItIsOpen) {
    machine.workspace.installed["term"].needsTerminal = true;
    machine.workspace.launch({.pid = 1, .name = "Shell", .bundleIdentifier = "term"});
    machine.workspace.launch({.pid = 2, .name = "editor", .bundleIdentifier = "editor"});
    manager.activityTracker().startTracking();
    machine.workspace.activate(2);
    machine.runLoop.advance(1min);
    open();
    click(button("autoQuitOptions"));
    auto* sheet = window.findChild<QDialog*>("autoQuitSheet");
    const auto shown = [&] {
        machine.runLoop.turn();
        uses.answer();
        settle();
        QStringList texts;
        for (const QWidget* row : sheet->findChildren<QWidget*>("prospect")) {
            texts += row->accessibleName();
        }
        return texts;
    };
    const auto* off = sheet->findChild<QWidget*>("autoQuitIsOff");
    EXPECT_TRUE(off->isVisible());
    settings.autoQuitEnabled.set(true);
    EXPECT_EQ(shown(), (QStringList{"editor, In 29 min", "Shell, Never: terminal"}));
    EXPECT_FALSE(off->isVisible());
    uses.report = {{{2, UseKind::recordsSound}}, true, 1h};
    click(*sheet->findChild<QAbstractButton*>("extra.sparesWhatIsInUse"));
    EXPECT_EQ(shown().front(), "editor, Spared: records sound");
    uses.report.uses.clear();
    machine.workspace.launch({.pid = 3, .name = "a", .bundleIdentifier = "a"});
    machine.runLoop.advance(3s);
    EXPECT_EQ(shown(), (QStringList{"a, Not before you use it", "editor, In 29 min",
                                    "Shell, Never: terminal"}));
    const int reads = uses.reads;
    click(*sheet->findChild<QAbstractButton*>("done"));
    machine.runLoop.advance(1min);
    EXPECT_EQ(uses.reads, reads) << "closed, it reads nothing";
}

} // namespace
} // namespace calmora
