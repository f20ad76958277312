#include "platform/FakeTransientWindows.h"
#include "platform/qt/alerts/QtAlerts.h"
#include "platform/qt/input/QtInputGate.h"
#include "platform/qt/popover/QtPopover.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace calmora {
namespace {

constexpr Rect icon{100, 0, 24, 24};

class PopoverTest : public testing::Test {
  protected:
    PopoverTest() {
        auto content = std::make_unique<QLineEdit>();
        field_ = content.get();
        popover_.setContent(std::move(content));
        popover_.setContentSize({360, 500});
    }

    FakeTransientWindows windows_;
    AlertSession alerts_;
    QtPopover popover_{windows_, alerts_};
    QLineEdit* field_ = nullptr;
};

TEST_F(PopoverTest, TellsOfShowingAndClosingOnce) {
    std::string heard;
    const Subscription shows = popover_.onWillShow([&] {
        EXPECT_FALSE(field_->isVisible());
        heard += "show ";
    });
    const Subscription closes = popover_.onDidClose([&] { heard += "close "; });
    popover_.performClose();
    popover_.show(icon);
    popover_.show(icon);
    EXPECT_TRUE(field_->isVisible());
    EXPECT_EQ(field_->mapToGlobal(QPoint()).x(), popover_.bounds().x + 1);
    QTest::keyClick(field_, Qt::Key_Escape);
    EXPECT_FALSE(popover_.isShown());
    EXPECT_FALSE(field_->isVisible());
    EXPECT_EQ(heard, "show close ");
    EXPECT_EQ(windows_.calls, "lend return ");
    popover_.show({});
    EXPECT_TRUE(popover_.isShown()) << "closed by its own action, it opens at once";
}

class AlertsTest : public testing::Test {
  protected:
    /// Shows the alert and runs `act` on it as soon as it is on screen.
    std::size_t answer(const std::function<void(QWidget&)>& act) {
        QTimer::singleShot(0, [&] {
            QWidget* panel = nullptr;
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (widget->isVisible() && widget->findChild<QWidget*>("alert")) {
                    panel = widget->findChild<QWidget*>("alert");
                }
            }
            ASSERT_NE(panel, nullptr);
            wasOpen_ = session_.isOpen();
            act(*panel);
        });
        return alerts_.runModal({.messageText = "Quit <b>everything</b>?",
                                 .informativeText = "Really.",
                                 .style = AlertStyle::critical,
                                 .icon = {},
                                 .buttons = {{"Force Quit All", true}, {"Cancel", false}}});
    }

    FakeTransientWindows windows_;
    AlertSession session_;
    QtAlerts alerts_{windows_, session_, Image{}};
    bool wasOpen_ = false;
};

TEST_F(AlertsTest, AnswersTheChosenButtonAndCancelByDefault) {
    const auto click = [](const char* name, Qt::KeyboardModifiers modifiers) {
        return [=](QWidget& panel) {
            auto* button = panel.findChild<QWidget*>(name);
            ASSERT_NE(button, nullptr);
            QTest::mouseClick(button, Qt::LeftButton, modifiers);
        };
    };
    const auto press = [](Qt::Key key) {
        return [key](QWidget& panel) { QTest::keyClick(panel.window()->focusWidget(), key); };
    };
    EXPECT_EQ(answer(click("alertButton0", Qt::NoModifier)), 0U);
    EXPECT_EQ(answer(click("alertButton0", Qt::AltModifier)), 0U);
    EXPECT_EQ(answer(click("alertButton1", Qt::NoModifier)), 1U);
    EXPECT_EQ(answer(press(Qt::Key_Return)), 1U) << "Cancel is the default";
    EXPECT_EQ(answer(press(Qt::Key_Escape)), 1U);
    EXPECT_TRUE(wasOpen_);
    EXPECT_FALSE(session_.isOpen());
}

TEST_F(AlertsTest, KeepsTheKeyboardAndShowsTextsAsTheyAre) {
    const std::size_t chosen = answer([&](QWidget& panel) {
        const auto* message = panel.findChild<QLabel*>("messageText");
        EXPECT_EQ(message->textFormat(), Qt::PlainText);
        windows_.onLeft(Leaving::turnedAway);
        EXPECT_TRUE(panel.isVisible()) << "an alert waits for its answer";
        QTest::mousePress(panel.window()->windowHandle(), Qt::LeftButton, {}, {40, 40});
        QTest::keyClick(panel.window()->focusWidget(), Qt::Key_Tab);
        QTest::keyClick(panel.window()->focusWidget(), Qt::Key_Space);
    });
    EXPECT_EQ(chosen, 0U);
    EXPECT_EQ(windows_.calls, "lend renew return ");
}

class InputTest : public testing::Test {
  protected:
    InputTest() {
        field_.show();
        field_.windowHandle()->requestActivate();
        QCoreApplication::processEvents();
    }

    FakeTransientWindows windows_;
    QLineEdit field_;
};

TEST_F(InputTest, GateDiscardsWhatHappenedBeforeAndNothingElse) {
    int discards = 0;
    QtInputGate gate(windows_, [&] { ++discards; });
    const auto key = [&](std::uint32_t time, QChar letter) {
        QKeyEvent event(QEvent::KeyPress, letter.toUpper().unicode(), {}, letter);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(field_.windowHandle(), &event);
    };
    const auto mouse = [&](std::uint32_t time, QEvent::Type type) {
        QMouseEvent event(type, {5, 5}, {5, 5}, {5, 5}, Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
        event.setTimestamp(time);
        QCoreApplication::sendEvent(field_.windowHandle(), &event);
    };
    field_.setReadOnly(false);
    field_.setText("x");
    field_.setCursorPosition(1);
    // The server's clock is about to wrap around.
    windows_.time = 0xffff'fff0U;
    gate.discardQueuedInput();
    key(0xffff'ffe0U, 'a');
    mouse(0xffff'fff0U, QEvent::MouseButtonPress);
    EXPECT_EQ(field_.cursorPosition(), 1);
    mouse(0x10, QEvent::MouseButtonRelease);
    key(0x10, 'b');
    EXPECT_EQ(field_.text(), "xb");
    EXPECT_EQ(discards, 1);

    windows_.time.reset();
    gate.discardQueuedInput();
    key(1, 'c');
    QTest::qWait(5);
    key(1, 'd');
    EXPECT_EQ(field_.text(), "xbd") << "without a clock the next turns decide";
}

} // namespace
} // namespace calmora
