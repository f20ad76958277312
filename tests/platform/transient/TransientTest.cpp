// SPDX-License-Identifier: MIT
#include "platform/qt/alerts/QtAlerts.h"
#include "platform/qt/input/QtEventMonitor.h"
#include "platform/qt/popover/QtPopover.h"
#include "platform/x11/backend/X11TransientWindows.h"
#include "support/KeyPresser.h"
#include "support/QtWaiting.h"
#include "support/VirtualDesktop.h"

#include <thread>

namespace calmora {
namespace {

using std::chrono::milliseconds;

// X keycodes.
constexpr std::uint8_t tab = 23;
constexpr std::uint8_t altL = 64;
constexpr std::uint8_t altGr = 92;
constexpr std::uint8_t escape = 9;
constexpr std::uint8_t letterA = 38;

/// Long enough for Qt to notice that a window lost the keyboard.
constexpr milliseconds settling{250};

/// The user's input and another program's windows, on a connection of their own.
class UserInput : public KeyPresser {
  public:
    UserInput() : KeyPresser({}) {}

    /// Moves there, presses and releases.
    void click(int x, int y, std::uint8_t number = 1) {
        move(x, y);
        button(number, true);
        button(number, false);
    }

    /// A new window of another program, on screen.
    xcb_window_t openWindow(int x, int y) {
        const xcb_window_t window = create(x, y, 200, XCB_CW_BACK_PIXEL, 0xffffff);
        // WM_NORMAL_HINTS: the place was chosen by the user.
        const std::uint32_t size[18] = {1};
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                            XCB_ATOM_WM_SIZE_HINTS, 32, 18, size);
        return show(window);
    }

    /// A window that no window manager touches, such as an icon of a panel.
    xcb_window_t openIcon(int x, int y, int side) {
        return show(create(x, y, side, XCB_CW_OVERRIDE_REDIRECT, 1));
    }

    void closeWindow(xcb_window_t window) {
        xcb_destroy_window(connection(), window);
        sync();
    }

    /// The uppermost window where the pointer is.
    xcb_window_t topmost() {
        const X11Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
            connection(), xcb_query_pointer(connection(), root()), nullptr));
        return reply ? reply->child : xcb_window_t{XCB_NONE};
    }

  private:
    /// Takes the clicks and keys itself: otherwise they would go on to the root.
    xcb_window_t create(int x, int y, int side, std::uint32_t attribute, std::uint32_t value) {
        const xcb_window_t window = xcb_generate_id(connection());
        const std::uint32_t values[] = {value, XCB_EVENT_MASK_BUTTON_PRESS};
        const auto extent = static_cast<std::uint16_t>(side);
        xcb_create_window(connection(), XCB_COPY_FROM_PARENT, window, root(),
                          static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), extent,
                          extent, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          attribute | XCB_CW_EVENT_MASK, values);
        return window;
    }

    xcb_window_t show(xcb_window_t window) {
        xcb_map_window(connection(), window);
        sync();
        return window;
    }
};

class TransientTest : public testing::Test {
  protected:
    TransientTest() {
        auto content = std::make_unique<QLineEdit>();
        field_ = content.get();
        popover_.setContent(std::move(content));
        popover_.setContentSize({360, 500});
        first_ = openActive(600, 100);
        second_ = openActive(600, 400);
    }

    ~TransientTest() override {
        input_.release({altL});
        popover_.performClose();
        for (const xcb_window_t window : {first_, second_}) {
            input_.closeWindow(window);
        }
        input_.move(1000, 700);
        loopFor(milliseconds{50});
    }

    /// A window of another program that has the keyboard.
    xcb_window_t openActive(int x, int y) {
        const xcb_window_t window = input_.openWindow(x, y);
        EXPECT_TRUE(owns(window));
        return window;
    }

    /// Whether the keyboard goes to a window, soon.
    bool owns(xcb_window_t window) {
        return loopUntil([&] { return input_.keyboardOwner() == window; });
    }

    void show() {
        popover_.show(icon_);
        ASSERT_TRUE(loopUntil([&] {
            return ownsKeyboard(field_) && QApplication::focusWindow() &&
                   field_->window()->windowHandle()->isExposed();
        }));
        field_->setFocus();
    }

    bool ownsKeyboard(const QWidget* widget) {
        return input_.keyboardOwner() == widget->window()->winId();
    }

    /// The popover keeps the keyboard.
    void expectToStay() {
        loopFor(settling);
        EXPECT_TRUE(popover_.isShown());
        EXPECT_TRUE(ownsKeyboard(field_));
    }

    void clickOn(const QWidget* widget, std::uint8_t button = 1) {
        const QPoint middle = widget->mapToGlobal(widget->rect().center());
        input_.click(middle.x(), middle.y(), button);
    }

    /// Shows an alert of two buttons and runs `act` while it is open.
    std::size_t ask(const std::function<void(QWidget& alert)>& act) {
        QTimer::singleShot(0, field_, [&] {
            QWidget* alert = nullptr;
            ASSERT_TRUE(loopUntil([&] {
                for (QWidget* widget : QApplication::topLevelWidgets()) {
                    QWidget* found = widget->findChild<QWidget*>("alert");
                    alert = found && found->isVisible() ? found : alert;
                }
                return alert && ownsKeyboard(alert) &&
                       QApplication::focusWindow() == alert->window()->windowHandle();
            }));
            act(*alert);
        });
        return alerts_.runModal({.messageText = "Force?",
                                 .informativeText = "Unsaved changes are lost.",
                                 .icon = {},
                                 .buttons = {{"Force Quit", true}, {"Cancel", false}}});
    }

    UserInput input_;
    X11TransientWindows windows_;
    AlertSession session_;
    QtAlerts alerts_{windows_, session_, Image{}};
    QtPopover popover_{windows_, session_};
    std::optional<Rect> icon_ = Rect{100, 0, 24, 24};
    QLineEdit* field_ = nullptr;
    xcb_window_t first_ = 0;
    xcb_window_t second_ = 0;
};

TEST_F(TransientTest, BorrowsTheKeyboardAndGivesItBack) {
    show();
    input_.tap({letterA});
    EXPECT_TRUE(loopUntil([&] { return field_->text() == "a"; }));
    input_.tap({escape});
    EXPECT_TRUE(loopUntil([&] { return !popover_.isShown(); }));
    EXPECT_EQ(input_.keyboardOwner(), second_);
}

TEST_F(TransientTest, AnAlertSurvivesTheLossOfTheKeyboardAndTheUserComesBack) {
    show();
    const std::size_t answer = ask([&](QWidget& alert) {
        input_.click(700, 480); // The second window.
        EXPECT_TRUE(owns(second_));
        loopFor(settling);
        // The second window reaches there.
        const QPoint corner = alert.mapToGlobal(alert.rect().bottomRight()) - QPoint(60, 20);
        input_.move(corner.x(), corner.y());
        EXPECT_EQ(input_.topmost(), alert.window()->winId()) << "nothing covers an alert";
        clickOn(alert.findChild<QWidget*>("messageText"));
        EXPECT_TRUE(loopUntil([&] { return ownsKeyboard(&alert); }));
        input_.tap({escape});
    });
    EXPECT_EQ(answer, 1U);
    expectToStay();
}

TEST_F(TransientTest, TakesTheKeyboardBackWhenTheActiveWindowVanishes) {
    show();
    input_.closeWindow(second_);
    expectToStay();
    input_.closeWindow(first_);
    expectToStay();
}

TEST_F(TransientTest, ClosesForAWindowThatAppearsAlsoWhileAQuitBlocks) {
    show();
    const xcb_window_t dialog = input_.openWindow(300, 300);
    EXPECT_TRUE(loopUntil([&] { return !popover_.isShown(); }));
    EXPECT_TRUE(owns(dialog));
    input_.closeWindow(dialog);
    EXPECT_TRUE(owns(second_));

    loopFor(QtPopover::reopenDelay);
    show();
    input_.closeWindow(second_);
    std::this_thread::sleep_for(milliseconds{50});
    const xcb_window_t other = input_.openWindow(300, 300);
    EXPECT_TRUE(waitFor([&] { return input_.keyboardOwner() == other; }));
    EXPECT_TRUE(loopUntil([&] { return !popover_.isShown(); }));
    EXPECT_EQ(input_.keyboardOwner(), other);
    input_.closeWindow(other);
}

TEST_F(TransientTest, LeftOpenBehindAQuestionItTakesTheKeyboardBackAtAClick) {
    popover_.stayOpenWhile([] { return true; });
    show();
    const xcb_window_t dialog = input_.openWindow(300, 300);
    EXPECT_TRUE(owns(dialog));
    clickOn(field_);
    EXPECT_TRUE(loopUntil([&] { return ownsKeyboard(field_); }));
    popover_.performClose();
    EXPECT_TRUE(owns(dialog));
    input_.closeWindow(dialog);
}

TEST_F(TransientTest, ClosesWhenTheUserSwitchesWindows) {
    show();
    input_.press({altL});
    input_.tap({tab});
    loopFor(settling); // The list of windows appears.
    EXPECT_TRUE(popover_.isShown());
    input_.release({altL});
    EXPECT_TRUE(loopUntil([&] { return !popover_.isShown(); }));
    EXPECT_TRUE(loopUntil(
        [&] { return input_.keyboardOwner() == first_ || input_.keyboardOwner() == second_; }));
}

TEST_F(TransientTest, ClosesForAPressOutsideButNotOnItsIconAndOnce) {
    const xcb_window_t icon = input_.openIcon(icon_->x, icon_->y, icon_->width);
    show();
    input_.click(icon_->x + 3, icon_->y + 3);
    loopFor(settling);
    clickOn(field_);
    clickOn(field_, 5);
    loopFor(settling);
    EXPECT_TRUE(popover_.isShown());

    const xcb_window_t panel = input_.openIcon(1200, 700, 24);
    input_.click(1210, 710, 5);
    loopFor(settling);
    EXPECT_TRUE(popover_.isShown()) << "turning the wheel elsewhere is no click";
    input_.move(1200, 780); // The bare root.
    input_.button(1, true);
    EXPECT_TRUE(loopUntil([&] { return !popover_.isShown(); }));
    input_.button(1, false);
    popover_.show({});
    EXPECT_FALSE(popover_.isShown());

    loopFor(QtPopover::reopenDelay);
    show();
    input_.click(700, 480); // The second window, which also gets the click.
    EXPECT_TRUE(loopUntil([&] { return !popover_.isShown(); }));
    EXPECT_TRUE(owns(second_));
    input_.closeWindow(icon);
    input_.closeWindow(panel);
}

TEST_F(TransientTest, TellsOptionAlsoWhenItsReleaseWentElsewhere) {
    QtEventMonitor monitor(windows_);
    std::vector<std::uint32_t> heard;
    show();
    const Subscription listening =
        monitor.onModifierFlagsChanged([&](ModifierFlags flags) { heard.push_back(flags.mask); });
    const auto hears = [&](std::size_t count, std::uint32_t last) {
        return loopUntil([&] { return heard.size() == count && heard.back() == last; });
    };
    input_.press({altL});
    EXPECT_TRUE(hears(1, ModifierFlags::option));
    input_.release({altL});
    EXPECT_TRUE(hears(2, 0));
    input_.tap({altGr}); // Sits on a modifier of its own.
    loopFor(milliseconds{50});
    EXPECT_EQ(heard.size(), 2U);

    input_.press({altL});
    EXPECT_TRUE(hears(3, ModifierFlags::option));
    ask([&](QWidget& alert) {
        input_.click(700, 480);
        EXPECT_TRUE(owns(second_));
        input_.release({altL});
        loopFor(settling);
        EXPECT_EQ(heard.size(), 3U) << "nobody sees this release";
        // A window manager that took the first click for the start of a move also takes the next
        // one, for its end.
        const QPointer<QWidget> cancel = alert.findChild<QWidget*>("alertButton1");
        for (int attempt = 0; attempt < 3 && alert.isVisible(); ++attempt) {
            clickOn(cancel);
            loopFor(settling);
        }
    });
    EXPECT_TRUE(hears(4, 0));
}

} // namespace
} // namespace calmora

/// Usage: calmora_transient_tests WINDOW_MANAGER [Google Test options]
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS();
    }
    const calmora::VirtualDesktop desktop({.windowManager = argc > 1 ? argv[1] : "openbox"});
    desktop.enter();
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
