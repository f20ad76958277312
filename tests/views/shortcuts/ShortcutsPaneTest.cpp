#include "ShortcutsPane.h"
#include "support/QtWaiting.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <memory>
#include <tuple>

namespace calmora {
namespace {

class ShortcutsPaneTest : public testing::Test {
  protected:
    void SetUp() override {
        pane->window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&pane->window));
        QCoreApplication::processEvents();
    }

    void press(RecorderCocoa& recorder, int virtualKey, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, modifiers,
                        1000U + static_cast<unsigned>(virtualKey), 0, 0);
        QApplication::sendEvent(&recorder, &event);
    }

    std::string stored(const std::string& name) {
        return pane->defaults.string("KeyboardShortcuts_" + name).value_or("none");
    }

    std::unique_ptr<ShortcutsPane> pane = std::make_unique<ShortcutsPane>();
};

TEST_F(ShortcutsPaneTest, RecordsShowsAndClears) {
    RecorderCocoa& recorder = pane->recorder("quitAll");
    EXPECT_TRUE(recorder.canBecomeKeyView()) << "Tab may choose it by now";
    QTest::mouseClick(&recorder, Qt::LeftButton);
    press(recorder, 40, Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    EXPECT_EQ(stored("quitAll"), R"({"carbonKeyCode":40,"carbonModifiers":6400})");
    EXPECT_EQ(recorder.accessibleName(), "Quit all: Control+Alt+Super+K");
    auto* clear = recorder.findChild<QToolButton*>("cancelButton");
    ASSERT_TRUE(clear->isVisible());
    QTest::mouseClick(clear, Qt::LeftButton);
    EXPECT_EQ(stored("quitAll"), "none");
    EXPECT_TRUE(recorder.isRecording()) << "goes on for another one";
    press(recorder, 40, Qt::GroupSwitchModifier);
    EXPECT_TRUE(recorder.isRecording()) << "AltGr is no modifier";
    press(recorder, 48);
    EXPECT_FALSE(recorder.isRecording());
    EXPECT_TRUE(pane->recorder("forceQuitAll").isRecording()) << "Tab leads on";
}

TEST_F(ShortcutsPaneTest, AlertsAreSheetsWhoseFirstButtonIsHarmless) {
    RecorderCocoa& recorder = pane->recorder("quitAll");
    pane->desktop.entries = {{true, 40, CarbonModifiers::control}};
    int waiting = 0;
    pane->environment.beginAlert = [&] {
        ++waiting;
        return Subscription([&] { --waiting; });
    };
    std::string seen;
    const auto escape = [](QMessageBox& sheet) { QTest::keyClick(&sheet, Qt::Key_Escape); };

    const struct {
        int key;
        std::function<void(QMessageBox&)> act;
        std::string expected;
    } rows[] = {
        {12, escape, "none"},
        {40, escape, "none"},
        {40, [](QMessageBox& sheet) { sheet.buttons().front()->click(); }, "none"},
        {40, [](QMessageBox& sheet) { sheet.buttons().back()->click(); },
         R"({"carbonKeyCode":40,"carbonModifiers":4096})"},
    };

    for (const auto& row : rows) {
        QTest::mouseClick(&recorder, Qt::LeftButton);
        ASSERT_TRUE(loopUntil([&] { return recorder.isRecording(); }));
        QTimer::singleShot(0, &recorder, [&] {
            auto* sheet = pane->window.findChild<QMessageBox*>("recorderAlert");
            ASSERT_NE(sheet, nullptr);
            seen += sheet->text().toStdString() + "|";
            EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
            EXPECT_EQ(waiting, 1);
            EXPECT_FALSE(recorder.isRecording());
            EXPECT_EQ(sheet->defaultButton(), sheet->buttons().front());
            row.act(*sheet);
        });
        press(recorder, row.key, Qt::ControlModifier);
        EXPECT_EQ(stored("quitAll"), row.expected);
        EXPECT_EQ(waiting, 0);
    }
    EXPECT_EQ(std::ranges::count(seen, '|'), 4) << seen;
    EXPECT_NE(seen.find("“Quit Calmora”"), std::string::npos) << seen;
}

TEST_F(ShortcutsPaneTest, EndsThePauseWhenThePaneIsHiddenOrDeleted) {
    QTest::mouseClick(&pane->recorder("quitAll"), Qt::LeftButton);
    ASSERT_TRUE(pane->shortcuts.handlersPaused());
    pane->window.hide();
    EXPECT_FALSE(pane->shortcuts.handlersPaused());

    pane = std::make_unique<ShortcutsPane>();
    SetUp();
    QTest::mouseClick(&pane->recorder("quitAll"), Qt::LeftButton);
    ASSERT_TRUE(pane->shortcuts.handlersPaused());
    bool isEnded = false;
    QTimer::singleShot(0, qApp, [&] {
        delete pane->window.layout()->itemAt(0)->widget();
        isEnded = pane->window.findChild<QMessageBox*>()->close();
    });
    press(pane->recorder("quitAll"), 12, Qt::ControlModifier);
    EXPECT_TRUE(isEnded) << "no question was asked";
    EXPECT_FALSE(pane->shortcuts.handlersPaused());
}

TEST(ShortcutsPaneHint, SaysWhereShortcutsDoNotWork) {
    const std::tuple<std::optional<std::string>, const char*, const char*> rows[] = {
        {{}, "", "Shortcuts work from any application."},
        {{}, "Only here.", "Only here."},
        {"Nowhere.", "Only here.", "Nowhere."},
    };
    for (const auto& [unavailable, limitation, hint] : rows) {
        ShortcutsPane pane(unavailable, limitation);
        EXPECT_EQ(pane.window.findChildren<QLabel*>().back()->text(), hint);
        EXPECT_EQ(pane.recorder("quitAll").isEnabled(), !unavailable);
        EXPECT_EQ(pane.recorder("quitAll").toolTip().toStdString(), unavailable.value_or(""));
    }
}

TEST(ShortcutsPaneHint, NothingIsCutOffInLargeFonts) {
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPixelSize(30);
    QApplication::setFont(large);
    ShortcutsPane pane;
    pane.window.show();
    QApplication::setFont(before);
    QCoreApplication::processEvents();
    auto* area = pane.window.findChild<QScrollArea*>();
    EXPECT_LE(area->widget()->width(), area->viewport()->width());
    EXPECT_GT(area->widget()->height(), area->viewport()->height()) << "it scrolls";
    for (const char* name : {"activateMenu", "forceQuitAll"}) {
        RecorderCocoa& recorder = pane.recorder(name);
        EXPECT_GT(recorder.width(),
                  recorder.fontMetrics().horizontalAdvance(recorder.placeholderText()));
        recorder.setFocus();
        EXPECT_TRUE(area->viewport()->rect().contains(
            recorder.mapTo(area->viewport(), recorder.rect().center())));
    }
}

} // namespace
} // namespace calmora
