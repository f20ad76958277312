// SPDX-License-Identifier: MIT
#include "ShortcutsPane.h"
#include "support/QtWaiting.h"

namespace calmora {
namespace {

class ShortcutsPaneTest : public testing::Test {
  protected:
    ShortcutsPaneTest() {
        pane.window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&pane.window));
        QCoreApplication::processEvents();
    }

    void press(RecorderCocoa& recorder, int virtualKey, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, modifiers,
                        1000U + static_cast<unsigned>(virtualKey), 0, 0);
        QApplication::sendEvent(&recorder, &event);
    }

    ShortcutsPane pane;
};

TEST_F(ShortcutsPaneTest, AlertsAreSheetsWhoseFirstButtonIsHarmless) {
    RecorderCocoa& recorder = pane.recorder("quitAll");
    pane.desktop.entries = {{true, 40, CarbonModifiers::control}};
    const std::pair<std::function<void(QDialog&)>, std::string> rows[] = {
        {[](QDialog& sheet) { QTest::keyClick(&sheet, Qt::Key_Escape); }, "none"},
        {[](QDialog& sheet) { QTest::keyClick(sheet.focusWidget(), Qt::Key_Return); }, "none"},
        {[](QDialog& sheet) { sheet.findChild<QPushButton*>("alertButton0")->click(); },
         R"({"carbonKeyCode":40,"carbonModifiers":4096})"},
    };
    for (const auto& [act, expected] : rows) {
        QTest::mouseClick(&recorder, Qt::LeftButton);
        ASSERT_TRUE(loopUntil([&] { return recorder.isRecording(); }));
        QTimer::singleShot(0, &recorder, [&, act = act] {
            auto* sheet = pane.window.findChild<QDialog*>("recorderAlert");
            ASSERT_NE(sheet, nullptr);
            EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
            EXPECT_FALSE(recorder.isRecording());
            act(*sheet);
        });
        press(recorder, 40, Qt::ControlModifier);
        EXPECT_EQ(pane.defaults.string("KeyboardShortcuts_quitAll").value_or("none"), expected);
    }
}

TEST_F(ShortcutsPaneTest, LetsTabOutBothWaysAndNoInputMethodIn) {
    RecorderCocoa& first = pane.recorder("activateMenu");
    RecorderCocoa& second = pane.recorder("quitAll");
    constexpr int tab = 48;
    QTest::mouseClick(&second, Qt::LeftButton);
    press(second, tab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), &first);
    press(first, tab);
    EXPECT_EQ(QApplication::focusWidget(), &second);
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QApplication::sendEvent(&second, &query);
    EXPECT_FALSE(query.value(Qt::ImEnabled).toBool()) << "it would swallow dead keys";
}

TEST_F(ShortcutsPaneTest, EndsThePauseWhenThePaneIsDeletedDuringAQuestion) {
    QTest::mouseClick(&pane.recorder("quitAll"), Qt::LeftButton);
    bool isEnded = false;
    QTimer::singleShot(0, qApp, [&] {
        delete pane.window.layout()->itemAt(0)->widget();
        isEnded = pane.window.findChild<QDialog*>()->close();
    });
    press(pane.recorder("quitAll"), 12, Qt::ControlModifier);
    EXPECT_TRUE(isEnded) << "no question was asked";
    EXPECT_FALSE(pane.shortcuts.handlersPaused());
}

TEST(ShortcutsPaneHint, FollowsWhatTheDesktopDoesWithAShortcut) {
    ShortcutsPane pane;
    pane.window.show();
    const auto texts = [&] {
        QStringList shown;
        for (const auto* label :
             pane.window.findChild<QWidget*>("quitAll")->findChildren<QLabel*>()) {
            shown += label->isVisible() ? label->text() : QString();
        }
        shown.removeAll(QString());
        return shown.join('|');
    };
    EXPECT_EQ(texts(), "Quit all:");
    const std::pair<HotKeyHint, const char*> rows[] = {
        {{HotKeyHint::Kind::assigned, "Super Q\u202E"}, "Quit all:|Key on this desktop: Super Q"},
        {{HotKeyHint::Kind::unassigned, ""}, "Quit all:|The desktop has assigned no key."},
        {{HotKeyHint::Kind::toCopy, "bind <b>"}, "Quit all:|bind <b>"},
    };
    for (const auto& [hint, expected] : rows) {
        pane.hotKeys.hints["quitAll"] = hint;
        pane.hotKeys.hintsChanged.emit();
        EXPECT_EQ(texts(), expected);
    }
    pane.window.findChild<QWidget*>("quitAll")->findChild<QPushButton*>()->click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "bind <b>");
    pane.hotKeys.hints.clear();
    pane.shortcuts.setShortcut(Shortcut{12, 0x1800}, pane.shortcuts.name("quitAll"));
    EXPECT_EQ(texts(), "Quit all:") << "asked again when a shortcut is recorded";
}

} // namespace
} // namespace calmora
