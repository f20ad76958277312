// SPDX-License-Identifier: MIT
// Every window in every language: no text may be cut off.

#include "settings/AboutPanel.h"
#include "settings/SettingsFixture.h"
#include "settings/SettingsView.h"
#include "shortcuts/ShortcutsPane.h"
#include "ui/ForceQuitConfirmation.h"
#include "ui/PopoverFixture.h"
#include "updates/UpdateWindow.h"
#include "widgets/AlertPanel.h"
#include "widgets/ContentArea.h"
#include "widgets/DisplayText.h"
#include "widgets/Theme.h"

namespace calmora {
namespace {

bool hasText(const QWidget& widget) {
    return qobject_cast<const QLabel*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QTabBar*>(&widget);
}

/// What a widget needs to show its text: all in one line, or as many lines as its width makes.
QSize needed(const QWidget& widget) {
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) {
        const QFontMetrics font = field->fontMetrics();
        // A text has a button beside it.
        return {std::max(font.horizontalAdvance(field->placeholderText()) + 8,
                         font.horizontalAdvance(field->text()) + 24),
                0};
    }
    if (widget.objectName() == "backgroundHeader" || widget.objectName() == "emptyState") {
        return {widget.fontMetrics().horizontalAdvance(widget.accessibleName()), 0};
    }
    if (!hasText(widget)) {
        return {};
    }
    return widget.hasHeightForWidth()
               ? QSize(widget.minimumSizeHint().width(), widget.heightForWidth(widget.width()))
               : widget.sizeHint();
}

/// What is below a scroll area may go on downwards.
void expectWhole(QWidget& window, const std::string& what) {
    QApplication::processEvents();
    int seen = 0;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const QSize need = needed(*widget);
        if (!widget->isVisible() || need.isEmpty()) {
            continue;
        }
        ++seen;
        const std::string name =
            what + ", " + widget->metaObject()->className() + " \"" +
            (widget->property("text").toString() + widget->accessibleName()).toStdString() + "\"";
        EXPECT_GE(widget->width(), need.width()) << name;
        EXPECT_GE(widget->height(), need.height()) << name;
        for (const QWidget* at = widget; !at->isWindow(); at = at->parentWidget()) {
            EXPECT_GE(at->x(), 0) << name;
            EXPECT_LE(at->geometry().right(), at->parentWidget()->rect().right()) << name;
        }
    }
    EXPECT_GT(seen, 1) << what;
}

void expectWholeSettings(const QLocale& locale) {
    SettingsFixture settings;
    settings.machine.workspace.launch({.pid = 10, .name = "Mail", .bundleIdentifier = "mail"});
    settings.machine.workspace.launch({.pid = 11, .name = "Files", .bundleIdentifier = "files"});
    ShortcutsPane shortcuts(locale);
    shortcuts.hotKeys.hints = {
        {"activateMenu", {HotKeyHint::Kind::assigned, "Ctrl+Alt+Shift+Super+Backspace"}},
        {"quitAll", {HotKeyHint::Kind::unassigned, {}}},
        {"forceQuitAll",
         {HotKeyHint::Kind::toCopy,
          "bindsym Mod4+Mod1+Ctrl+Shift+BackSpace exec calmora --force-quit-all"}}};
    shortcuts.shortcuts.setShortcut(Shortcut{49, 0x1B00}, shortcuts.shortcuts.name("quitAll"));
    SettingsView view(settings.settings, settings.updater,
                      {.platform = settings.machine.platform(),
                       .loginItem = settings.loginItem,
                       .autoQuit = settings.autoQuit,
                       .recorders = shortcuts.environment,
                       .icon = {}});
    view.show();
    auto* tabs = view.findChild<QTabBar*>();
    for (int pane = 0; pane < tabs->count(); ++pane) {
        tabs->setCurrentIndex(pane);
        expectWhole(view, "settings, pane " + std::to_string(pane));
        EXPECT_EQ(view.rect().size(), boundedByScreen(view, QSize(450, 560) * Theme::textScale()));
    }
    auto& recorder =
        static_cast<RecorderCocoa&>(*view.findChild<QWidget*>("quitAll")->findChild<QLineEdit*>());
    tabs->setCurrentIndex(1);
    view.activateWindow();
    QApplication::processEvents();
    recorder.setFocus();
    ASSERT_TRUE(recorder.isRecording());
    expectWhole(view, "recording");

    tabs->setCurrentIndex(0);
    const auto corner = [&] { return qGray(view.grab(QRect(0, 0, 1, 1)).toImage().pixel(0, 0)); };
    const int undimmed = corner();
    view.findChild<QAbstractButton*>("addApp")->click();
    EXPECT_LT(corner(), undimmed);
    auto* sheet = view.findChild<QDialog*>("addAppSheet");
    settings.settings.addToNeverQuit("mail");
    expectWhole(*sheet, "sheet");
    expectWhole(view, "settings with a protected application");

    QFont other = QApplication::font();
    other.setPointSize(16);
    QApplication::setFont(other);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.font().pointSize() == 16; }));
    QTest::qWait(10);
    ASSERT_EQ(view.findChild<QDialog*>("addAppSheet"), sheet) << "a sheet is not taken away";
    sheet->close();
    view.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return view.rect().size() == boundedByScreen(view, QSize(450, 560) * Theme::textScale());
    }));
    QApplication::processEvents();
    expectWhole(view, "settings in another font");
    settings.settings.autoQuitEnabled.set(true);
    expectWhole(view, "settings with an offer");
    settings.machine.workspace.launch(
        {.pid = 12, .name = "Terminal", .bundleIdentifier = "exe:/usr/bin/Eterm.Eterm"});
    view.findChild<QAbstractButton*>("autoQuitOptions")->click();
    settings.machine.runLoop.turn();
    QApplication::processEvents();
    expectWhole(*view.findChild<QDialog*>("autoQuitSheet"), "auto-quit");
}

void withUsualAndLargeFont(const std::function<void()>& check) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(24);
    for (const QFont& font : {usual, large}) {
        QApplication::setFont(font);
        check();
    }
    QApplication::setFont(usual);
}

class Clipping : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        // A script without a font has boxes for letters, and their width says nothing.
        const QString sample = uiText("Quit All");
        for (const uint letter : sample.toUcs4()) {
            ASSERT_TRUE(QFontMetrics(QApplication::font()).inFontUcs4(letter)) << letter;
        }
    }

    const QLocale locale{GetParam()};
    const QtLocalizedStrings strings{locale};
};

void expectWholePopover() {
    PopoverFixture popover(
        "This desktop does not tell which applications run, so only X11 ones are listed.");
    popover.launch(100, "Files");
    popover.launch(101, "Mail");
    popover.launch(102, "Agent", ActivationPolicy::accessory);
    popover.settings.viewBackgroundApps.set(true);
    popover.window.show();
    expectWhole(popover.window, "popover");
    popover.machine.events.flags.emit({ModifierFlags::option});
    popover.model.toggleWhitelist(100);
    expectWhole(popover.window, "popover in force mode");
    popover.model.setSearchText("zebra");
    expectWhole(popover.window, "popover that finds nothing");

    const auto press = [&popover](const char* button) {
        QApplication::processEvents();
        popover.view->findChild<QAbstractButton*>(button)->click();
        popover.machine.runLoop.advance(std::chrono::seconds(2));
    };
    popover.machine.events.flags.emit({});
    popover.model.setSearchText("");
    popover.model.toggleWhitelist(100);
    popover.model.setAllSelected(true);
    popover.machine.workspace.at(100).endsAfterTerminate.reset();
    popover.machine.workspace.at(100).isUnresponsive = true;
    press("quitAll");
    expectWhole(popover.window, "popover with an offer");
    press("acceptOffer");
    popover.launch(103, "Mail");
    popover.machine.processes.at(103).counters->physFootprint = std::uint64_t{3} << 30U;
    popover.machine.workspace.at(103).desktopId = "mail";
    popover.machine.runLoop.turn();
    press("quitAll");
    expectWhole(popover.window, "popover with what stayed");
}

TEST_P(Clipping, Popover) {
    withUsualAndLargeFont(expectWholePopover);
}

TEST_P(Clipping, Settings) {
    withUsualAndLargeFont([&] { expectWholeSettings(locale); });
}

void expectWholeQuestions(const LocalizedStrings& strings) {
    AboutPanel about(strings, {}, {});
    about.show();
    expectWhole(about, "about");

    FakeAlerts alerts;
    EXPECT_FALSE(confirmForceQuitAll(alerts, strings, 23));
    EXPECT_FALSE(confirmForceQuit(alerts, strings, "GNU Image Manipulation Program", {}));
    EXPECT_FALSE(confirmForceQuit(alerts, strings, std::string(300, 'y'), {}));
    for (const Alert& alert : alerts.shown) {
        AlertPanel panel(alert, {}, [](std::size_t) {});
        panel.resize(panel.fitWidth());
        EXPECT_LT(panel.width(), 500 * Theme::textScale());
        panel.show();
        expectWhole(panel, alert.messageText);
    }

    UpdateWindow update({}, {});
    for (const char* error :
         {"update_error_address", "update_error_loader", "update_error_version"}) {
        update.show({.title = strings.text("update_failed_title"),
                     .text = strings.text(error),
                     .notes = "News",
                     .page = "https://example.org"});
        const QWidgetList windows = QApplication::topLevelWidgets();
        expectWhole(**std::ranges::find(windows, "updatePanel", &QWidget::objectName), error);
    }
}

TEST_P(Clipping, AboutAndQuestions) {
    withUsualAndLargeFont([&] { expectWholeQuestions(strings); });
}

INSTANTIATE_TEST_SUITE_P(Languages, Clipping,
                         testing::Values("en", "de", "fr", "es", "ja", "zh_CN"));

} // namespace
} // namespace calmora
