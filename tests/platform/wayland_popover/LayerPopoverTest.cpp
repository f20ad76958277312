// SPDX-License-Identifier: MIT
// The popover as a layer surface on a headless sway, with real keys and clicks.
#include "platform/qt/alerts/QtAlerts.h"
#include "platform/qt/input/QtEventMonitor.h"
#include "platform/qt/popover/QtPopover.h"
#include "platform/wayland/backend/CompositorConnection.h"
#include "platform/wayland/backend/LayerTransientWindows.h"
#include "platform/wayland/backend/QtPlatformChoice.h"
#include "support/QtWaiting.h"
#include "support/VirtualDesktop.h"

#include <wlr-virtual-pointer-unstable-v1-client.h>

namespace calmora {
namespace {

constexpr int width = 1280;
constexpr int height = 800;
constexpr int barHeight = 30;
constexpr int gap = 8;

VirtualDesktop* desktop = nullptr;

/// A pointer of our own on a compositor that lets any program have one.
class WaylandHands {
  public:
    static constexpr std::uint32_t left = 0x110;
    static constexpr std::uint32_t right = 0x111;

    WaylandHands() {
        pointer_.reset(
            zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager_.get(), nullptr));
        connection_.roundTrip(defaultTimeout);
    }

    /// In two steps: with the first sway notices that a surface has gone from under the pointer.
    void move(int x, int y) {
        for (const int step : {x - 1, x}) {
            zwlr_virtual_pointer_v1_motion_absolute(pointer_.get(), ++time_,
                                                    static_cast<std::uint32_t>(step),
                                                    static_cast<std::uint32_t>(y), width, height);
            finish();
        }
    }

    void click() {
        press();
        release();
    }

    void press(std::uint32_t button = left) { send(button, WL_POINTER_BUTTON_STATE_PRESSED); }

    void release(std::uint32_t button = left) { send(button, WL_POINTER_BUTTON_STATE_RELEASED); }

  private:
    void send(std::uint32_t button, std::uint32_t state) {
        zwlr_virtual_pointer_v1_button(pointer_.get(), ++time_, button, state);
        finish();
    }

    void finish() {
        zwlr_virtual_pointer_v1_frame(pointer_.get());
        connection_.roundTrip(defaultTimeout);
    }

    /// Milliseconds of a clock of its own.
    std::uint32_t time_ = 0;
    CompositorConnection connection_{defaultTimeout};
    WaylandProxy<zwlr_virtual_pointer_manager_v1> manager_ =
        connection_.bindFirst<zwlr_virtual_pointer_manager_v1>(
            zwlr_virtual_pointer_manager_v1_interface, 1);
    WaylandProxy<zwlr_virtual_pointer_v1> pointer_;
};

/// A search field with nothing below it; remembers what the pointer does.
class Content final : public QWidget {
  public:
    Content() : field(this) {
        field.resize(200, 30);
        setMouseTracking(true);
        setContextMenuPolicy(Qt::CustomContextMenu);
    }

    QLineEdit field;
    std::optional<QPoint> pointer;
    std::optional<QPoint> pressed;
    Qt::KeyboardModifiers modifiers;

  protected:
    void mouseMoveEvent(QMouseEvent* event) override { pointer = event->position().toPoint(); }

    void mousePressEvent(QMouseEvent* event) override {
        pressed = event->position().toPoint();
        modifiers = event->modifiers();
    }
};

class LayerPopoverTest : public testing::Test {
  protected:
    LayerPopoverTest() {
        auto content = std::make_unique<Content>();
        content_ = content.get();
        popover_.setContent(std::move(content));
        popover_.setContentSize({360, 500});
        keyboard_ = desktop->start({"wtype", "-s", "60000", "-k", "Shift_L"});
        hands_.move(600, 10);
    }

    ~LayerPopoverTest() override {
        popover_.performClose();
        desktop->end(keyboard_);
    }

    void show() {
        popover_.show({});
        ASSERT_TRUE(loopUntil([&] { return hasKeyboard(content_); })) << desktop->log();
        content_->field.setFocus();
    }

    static bool hasKeyboard(const QWidget* widget) {
        return QApplication::focusWindow() &&
               QApplication::focusWindow() == widget->window()->windowHandle();
    }

    /// Moves the pointer to a place until it has arrived at the surface that is meant: sway needs a
    /// moment to see that one has come or gone under the pointer.
    void pointAt(int x, int y, const std::function<bool()>& hasArrived) {
        EXPECT_TRUE(loopUntil([&] {
            hands_.move(x, y);
            return hasArrived();
        }));
    }

    void pointInside(int x, int y) {
        content_->pointer.reset();
        pointAt(popover_.bounds().x + 1 + x, popover_.bounds().y + 1 + y,
                [&] { return content_->pointer == QPoint(x, y); });
    }

    /// Clicks at a place within the content, and sees the click arrive there.
    void clickInside(int x, int y) {
        content_->pressed.reset();
        pointInside(x, y);
        hands_.click();
        EXPECT_TRUE(loopUntil([&] { return content_->pressed == QPoint(x, y); }));
    }

    bool isTyped(const std::string& text) {
        content_->field.clear();
        desktop->start({"wtype", text});
        return loopUntil([&] { return content_->field.text().toStdString() == text; });
    }

    WaylandHands hands_;
    LayerTransientWindows windows_{false};
    AlertSession session_;
    QtAlerts alerts_{windows_, session_, Image{}};
    QtPopover popover_{windows_, session_};
    Content* content_ = nullptr;
    pid_t keyboard_ = 0;
};

TEST_F(LayerPopoverTest, IsBelowTheBarAtThePointerWhereItSaysAndHasTheKeyboard) {
    show();
    const Rect expected{600 - 360 / 2, barHeight + gap, 360, 500};
    EXPECT_EQ(popover_.bounds(), expected);
    clickInside(250, 300);
    EXPECT_TRUE(isTyped("foo"));
    desktop->start({"wtype", "-k", "Escape"});
    EXPECT_TRUE(loopUntil([&] { return !popover_.isShown(); }));

    // A press on the icon opens it while the button is down, which the bar keeps until it is up.
    hands_.move(900, 10);
    hands_.press();
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        hands_.release();
    });
    show();
    release.join();
    EXPECT_EQ(popover_.bounds().x, 900 - 360 / 2);
    popover_.performClose();

    hands_.move(300, 500); // In no bar: where it was.
    show();
    EXPECT_EQ(popover_.bounds().x, 900 - 360 / 2);
}

TEST_F(LayerPopoverTest, TakesAltAndClicksWithIt) {
    show();
    QtEventMonitor monitor(windows_);
    bool isHeld = false;
    const Subscription changes = monitor.onModifierFlagsChanged(
        [&](ModifierFlags flags) { isHeld = flags.contains(ModifierFlags::option); });
    const pid_t alt = desktop->start({"wtype", "-M", "alt", "-P", "Alt_L", "-s", "60000"});
    EXPECT_TRUE(loopUntil([&] { return isHeld; }));
    clickInside(250, 300);
    EXPECT_TRUE(content_->modifiers.testFlag(Qt::AltModifier));
    desktop->end(alt);
}

TEST_F(LayerPopoverTest, ClosesAtAPressOutsideWithItsMenu) {
    QPointer<QMenu> menu;
    bool isChosen = false;
    QObject::connect(content_, &QWidget::customContextMenuRequested, content_,
                     [&](const QPoint& at) {
                         menu = new QMenu(content_);
                         menu->setAttribute(Qt::WA_DeleteOnClose);
                         menu->addAction("An entry", [&] { isChosen = true; });
                         menu->popup(content_->mapToGlobal(at));
                     });
    const auto openMenu = [&] {
        pointInside(250, 300);
        hands_.press(WaylandHands::right);
        EXPECT_TRUE(loopUntil([&] { return menu && menu->isVisible(); }));
        hands_.release(WaylandHands::right);
    };
    show();
    openMenu();
    pointAt(popover_.bounds().x + 260, popover_.bounds().y + 312,
            [&] { return menu->activeAction() != nullptr; });
    hands_.click();
    EXPECT_TRUE(loopUntil([&] { return isChosen && !menu; }));
    EXPECT_TRUE(popover_.isShown());

    openMenu();
    EXPECT_NE(desktop->run({"/bin/sh", "-c", "swaymsg -t get_tree | grep -q '\"pid\"'"}), 0)
        << "a layer surface is no window";
    hands_.move(100, 700);
    hands_.click();
    EXPECT_TRUE(loopUntil([&] { return !popover_.isShown() && !menu; }));
}

TEST_F(LayerPopoverTest, AnAlertIsAboveItAndGivesTheKeyboardBack) {
    show();
    QTimer::singleShot(0, content_, [&] {
        QWidget* alert = nullptr;
        ASSERT_TRUE(loopUntil([&] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                alert = widget->findChild<QWidget*>("alert") ? widget : alert;
            }
            return alert && hasKeyboard(alert);
        }));
        hands_.move(100, 700);
        hands_.click();
        const QPoint button = alert->findChild<QWidget*>("alertButton0")->geometry().center() +
                              alert->findChild<QWidget*>("alert")->pos() - alert->rect().center();
        // In the middle of what the bar leaves.
        hands_.move(width / 2 + button.x(), (height + barHeight) / 2 + button.y());
        hands_.click();
    });
    EXPECT_EQ(alerts_.runModal({.messageText = "Force?",
                                .informativeText = "Unsaved changes are lost.",
                                .icon = {},
                                .buttons = {{"Force Quit", true}, {"Cancel", false}}}),
              0U);
    ASSERT_TRUE(popover_.isShown());
    EXPECT_TRUE(loopUntil([&] { return hasKeyboard(content_); }));
    EXPECT_TRUE(isTyped("bar"));
    clickInside(250, 300);
    EXPECT_TRUE(popover_.isShown());
}

/// Gives sway a bar, and waits until it takes its place.
bool startBar() {
    std::ofstream(desktop->home() / "sway.conf", std::ios::app)
        << "bar {\n position top\n height " << barHeight << "\n}\n";
    desktop->run({"swaymsg", "reload"});
    return waitFor([] {
        const auto outputs = OutsideCatcher(std::chrono::milliseconds(0), [] {}).outputs();
        return !outputs.empty() && outputs.front().usable == Size{width, height - barHeight};
    });
}

} // namespace
} // namespace calmora

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    calmora::VirtualDesktop sway({.sway = true});
    calmora::desktop = &sway;
    sway.enter();
    const auto facts = calmora::readCompositorFacts([] { return false; });
    for (const auto& [name, value] : calmora::qtEnvironmentFor(facts)) {
        qputenv(name.c_str(), value.c_str());
    }
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    if (!calmora::startBar()) {
        return 1;
    }
    return RUN_ALL_TESTS();
}
