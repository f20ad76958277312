// SPDX-License-Identifier: MIT
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/alerts/QtAlerts.h"
#include "platform/qt/input/QtInputGate.h"
#include "platform/qt/window/ManagedTransientWindows.h"
#include "support/FileDescriptor.h"
#include "support/QtWaiting.h"

#include <fcntl.h>
#include <unistd.h>

namespace calmora {
namespace {

using std::chrono::milliseconds;

TEST(RunLoop, HoldsTimersAndDescriptorsBackWhileAnAlertIsOpen) {
    AlertSession alerts;
    QtRunLoop loop(alerts);
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
    const FileDescriptor reading(ends[0]);
    const FileDescriptor writing(ends[1]);
    std::string heard;
    const Subscription ticking = loop.repeat(milliseconds{20}, [&] { heard += "t"; });
    Subscription cancelled = loop.after(milliseconds{1}, [&] { heard += "cancelled"; });
    cancelled.reset();
    DescriptorWatch watch(reading.get(), alerts, [&] {
        char byte = 0;
        while (read(reading.get(), &byte, 1) == 1) {
            heard += byte;
        }
    });

    Subscription outer = alerts.begin();
    Subscription inner = alerts.begin();
    ASSERT_EQ(write(writing.get(), "d", 1), 1);
    inner.reset();
    loopFor(milliseconds(50));
    EXPECT_EQ(heard, "");

    outer.reset();
    EXPECT_EQ(heard, "") << "not in the middle of whoever showed the alert";
    ASSERT_TRUE(loopUntil([&] { return heard.size() >= 2; }));
    EXPECT_NE(heard.find('d'), std::string::npos);
    EXPECT_NE(heard.find('t'), std::string::npos);
    EXPECT_EQ(heard.find('c'), std::string::npos) << "a cancelled timer";
}

TEST(QtAlerts, AnswersTheChosenButtonAndCancelByDefault) {
    ManagedTransientWindows windows;
    AlertSession session;
    QtAlerts alerts(windows, session, Image{});
    const std::pair<std::size_t, std::vector<Qt::Key>> rows[] = {
        {1U, {Qt::Key_Return}}, {1U, {Qt::Key_Escape}}, {0U, {Qt::Key_Tab, Qt::Key_Space}}};
    for (const auto& [expected, keys] : rows) {
        QTimer::singleShot(0, [&, keys = keys] {
            QWidget* alert = nullptr;
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                alert =
                    widget->isVisible() && !alert ? widget->findChild<QWidget*>("alert") : alert;
            }
            ASSERT_NE(alert, nullptr);
            EXPECT_TRUE(session.isOpen());
            for (const Qt::Key key : keys) {
                QTest::keyClick(alert->window()->focusWidget(), key);
            }
        });
        EXPECT_EQ(alerts.runModal({.messageText = "Quit <b>everything</b>?",
                                   .informativeText = "Really.",
                                   .style = AlertStyle::critical,
                                   .icon = {},
                                   .buttons = {{"Force Quit All", true}, {"Cancel", false}}}),
                  expected);
        EXPECT_FALSE(session.isOpen());
    }
}

/// Tells a server's time.
struct ClockedWindows final : TransientWindows {
    [[nodiscard]] Qt::WindowFlags transientFlags() const override { return {}; }

    bool isComposited() override { return false; }

    void setInputArea(QWindow&, const QRect&) override {}

    std::unique_ptr<FocusGrab> grabFocus(QWindow&, std::function<bool()>,
                                         std::function<void(Leaving)>) override {
        return nullptr;
    }

    std::optional<ModifierFlags> modifiers() override { return {}; }

    std::optional<std::uint32_t> eventTime() override { return time; }

    std::optional<std::uint32_t> time;
};

TEST(QtInputGate, DiscardsWhatHappenedBeforeAndNothingElse) {
    ClockedWindows windows;
    int discards = 0;
    QtInputGate gate(windows, [&] { ++discards; });
    QLineEdit field("x");
    field.show();
    field.windowHandle()->requestActivate();
    QCoreApplication::processEvents();
    const auto key = [&](std::uint32_t time, QChar letter) {
        QKeyEvent event(QEvent::KeyPress, letter.toUpper().unicode(), {}, letter);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(field.windowHandle(), &event);
    };
    const auto mouse = [&](std::uint32_t time, QEvent::Type type) {
        QMouseEvent event(type, {5, 5}, {5, 5}, {5, 5}, Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
        event.setTimestamp(time);
        QCoreApplication::sendEvent(field.windowHandle(), &event);
    };
    field.setCursorPosition(1);
    // The server's clock is about to wrap around.
    windows.time = 0xffff'fff0U;
    gate.discardQueuedInput();
    key(0xffff'ffe0U, 'a');
    mouse(0xffff'fff0U, QEvent::MouseButtonPress);
    EXPECT_EQ(field.cursorPosition(), 1);
    mouse(0x10, QEvent::MouseButtonRelease);
    key(0x10, 'b');
    EXPECT_EQ(field.text(), "xb");
    EXPECT_EQ(discards, 1);

    windows.time.reset();
    gate.discardQueuedInput();
    key(1, 'c');
    QTest::qWait(5);
    key(1, 'd');
    EXPECT_EQ(field.text(), "xbd") << "without a clock the next turns decide";
}

} // namespace
} // namespace calmora
