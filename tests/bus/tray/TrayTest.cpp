// SPDX-License-Identifier: MIT
#include "fakes/FakeLocalizedStrings.h"
#include "platform/desktop/status/QtStatusItem.h"
#include "support/VirtualDesktop.h"

#include "../PrivateBus.h"

#include <csignal>

namespace calmora {
namespace {

VirtualDesktop* desktop = nullptr;

bool contains(const std::optional<Rect>& rect, QPoint point) {
    return rect && QRect(rect->x, rect->y, rect->width, rect->height).contains(point);
}

class TrayTest : public testing::Test {
  protected:
    TrayTest() {
        item.setTemplateImage(Image{{}, RESOURCES "/MenuBarIcon.svg", {}}, 19);
        item.setAction([this](StatusEvent event) { events.push_back(event); });
        item.setMenu([] { return std::vector<StatusMenuItem>{{"Quit", "q", true, {}}}; });
    }

    /// Moves the real pointer and clicks.
    static void click(const std::string& place, const std::string& buttons) {
        const std::string command = "xdotool mousemove " + place + " click " + buttons;
        ASSERT_EQ(desktop->run({"/bin/sh", "-c", command}), 0);
    }

    [[nodiscard]] bool isInTray() const { return contains(item.frame(), {1268, 12}); }

    /// Whether Qt's window in the tray is there.
    [[nodiscard]] static bool hasTrayWindow() {
        return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* widget) {
            return widget->inherits("QSystemTrayIconSys") && widget->isVisible();
        });
    }

    /// The lightness of the darkest and of the lightest pixel where the icon is.
    [[nodiscard]] std::pair<int, int> lightness() const {
        const Rect at = item.frame().value_or(Rect{});
        const QImage seen = QGuiApplication::primaryScreen()
                                ->grabWindow(0, at.x, at.y, at.width, at.height)
                                .toImage();
        std::pair range{255, 0};
        for (int i = 0; i < seen.width() * seen.height(); ++i) {
            const int gray = qGray(seen.pixel(i % seen.width(), i / seen.width()));
            range = {std::min(range.first, gray), std::max(range.second, gray)};
        }
        return range;
    }

    PrivateBus bus;
    FakeLocalizedStrings strings;
    std::vector<StatusEvent> events;
    QtStatusItem item{bus.connect(), "org.example.Item", strings};
};

TEST_F(TrayTest, takesClicksInATrayThatComesLateAndGoesForAPanel) {
    EXPECT_FALSE(
        loopUntil([&] { return item.frame().has_value(); }, std::chrono::milliseconds(100)));
    const pid_t tray =
        desktop->start({"trayer", "--edge", "top", "--align", "right", "--widthtype", "request",
                        "--height", "24", "--transparent", "true", "--tint", "0x202020"});
    ASSERT_EQ(desktop->run({"xdotool", "search", "--sync", "--class", "trayer"}), 0);
    kill(tray, SIGSTOP);
    EXPECT_FALSE(
        loopUntil([&] { return item.frame().has_value(); }, std::chrono::milliseconds(100)))
        << "a tray that has not taken the icon yet";
    kill(tray, SIGCONT);
    // A tray takes clicks for the icon once it shows it.
    ASSERT_TRUE(
        loopUntil([&] { return isInTray() && lightness().second - lightness().first > 150; }));
    click("1268 12", "--repeat 2 --delay 40 1");
    EXPECT_TRUE(loopUntil([&] { return events.size() == 2; })) << "a fast second click counts";
    click("1268 12", "3");
    EXPECT_TRUE(loopUntil([&] { return events.size() == 3; }));
    using enum StatusEvent;
    EXPECT_EQ(events, (std::vector{leftMouseUp, leftMouseUp, rightMouseUp}));

    QDBusConnection panel = bus.connect();
    ScriptedObject watcher(panel, "/StatusNotifierWatcher");
    ASSERT_TRUE(panel.registerService("org.kde.StatusNotifierWatcher"));
    EXPECT_TRUE(loopUntil([&] { return !hasTrayWindow(); }));
    EXPECT_TRUE(loopUntil([&] { return watcher.count("RegisterStatusNotifierItem") == 1; }));
    ASSERT_TRUE(panel.unregisterService("org.kde.StatusNotifierWatcher"));
    EXPECT_TRUE(loopUntil([&] { return hasTrayWindow() && isInTray(); })) << "the panel went away";
    desktop->end(tray);
}

TEST_F(TrayTest, remembersThePointerWherePanelsTellNothing) {
    QDBusConnection panel = bus.connect();
    ScriptedObject watcher(panel, "/StatusNotifierWatcher");
    ASSERT_TRUE(panel.registerService("org.kde.StatusNotifierWatcher"));
    ASSERT_TRUE(loopUntil([&] { return watcher.count("RegisterStatusNotifierItem") == 1; }));
    const QString name = watcher.calls.back().arguments().value(0).toString();
    click("300 700", "1");
    callAndWait(panel, name, NotifierItem::path, NotifierItem::interfaceName, "Activate", {0, 0});
    ASSERT_TRUE(loopUntil([&] { return events.size() == 1; }));
    EXPECT_TRUE(contains(item.frame(), {300, 700}));
}

} // namespace
} // namespace calmora

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    calmora::VirtualDesktop desktop;
    calmora::desktop = &desktop;
    desktop.enter();
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
