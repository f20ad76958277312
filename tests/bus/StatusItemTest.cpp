// SPDX-License-Identifier: MIT
#include "fakes/FakeLocalizedStrings.h"
#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/status/Glyph.h"
#include "platform/desktop/status/QtStatusItem.h"

#include "PrivateBus.h"

namespace calmora {
namespace {

constexpr auto watcherName = "org.kde.StatusNotifierWatcher";
constexpr auto menuInterface = MenuObject::interfaceName;
constexpr auto itemInterface = NotifierItem::interfaceName;

class StatusItemTest : public testing::Test {
  protected:
    StatusItemTest() {
        item.setAction([this](StatusEvent event) { events.push_back(event); });
        item.setMenu([this] {
            return std::vector<StatusMenuItem>{
                {"About_\u202E\tCalmora", "", true, [this] { ++abouts; }},
                {"Check for Updates…", "", canUpdate, [this] { ++updates; }},
                {},
                {"Quit Calmora", "q", true, [this] { ++quits; }},
            };
        });
    }

    /// The panel starts.
    void startPanel() {
        panelObject = std::make_unique<ScriptedObject>(panel, "/StatusNotifierWatcher");
        ASSERT_TRUE(panel.registerService(watcherName));
    }

    void stopPanel() {
        ASSERT_TRUE(panel.unregisterService(watcherName));
        panelObject.reset();
    }

    [[nodiscard]] bool isRegistered() const {
        return panelObject && panelObject->count("RegisterStatusNotifierItem") == 1 &&
               panelObject->calls.back().arguments().value(0) == own.baseService();
    }

    QDBusMessage call(const char* path, const char* interface, const char* method,
                      const QVariantList& arguments = {}) {
        return callAndWait(panel, own.baseService(), path, interface, method, arguments);
    }

    QDBusMessage callMenu(const char* method, const QVariantList& arguments = {}) {
        return call(MenuObject::path, menuInterface, method, arguments);
    }

    /// Tells the menu of an event of an entry, 0 for the menu itself.
    QDBusMessage::MessageType tell(const char* event, int entry = 0) {
        return callMenu("Event", {entry, event, QVariant::fromValue(QDBusVariant(0)), 0U}).type();
    }

    QVariant property(const char* name) {
        return call(NotifierItem::path, "org.freedesktop.DBus.Properties", "Get",
                    {itemInterface, name})
            .arguments()
            .value(0)
            .value<QDBusVariant>()
            .variant();
    }

    DbusMenuLayout layout() {
        const QVariantList out = callMenu("GetLayout", {0, -1, QStringList()}).arguments();
        return qdbus_cast<DbusMenuLayout>(out.value(1));
    }

    static QList<DbusMenuLayout> children(const DbusMenuLayout& menu) {
        QList<DbusMenuLayout> result;
        for (const QDBusVariant& child : menu.children) {
            result += qdbus_cast<DbusMenuLayout>(child.variant());
        }
        return result;
    }

    /// Separators are "-".
    static QStringList titles(const DbusMenuLayout& menu) {
        QStringList result;
        for (const DbusMenuLayout& child : children(menu)) {
            const bool isLine = child.properties.value("type") == "separator";
            result += isLine ? "-" : child.properties.value("label").toString();
        }
        return result;
    }

    PrivateBus bus;
    QDBusConnection own = bus.connect();
    QDBusConnection panel = bus.connect();
    FakeLocalizedStrings strings;
    bool canUpdate = false;
    int abouts = 0;
    int updates = 0;
    int quits = 0;
    std::vector<StatusEvent> events;
    std::vector<bool> menuOpen;
    std::unique_ptr<ScriptedObject> panelObject;
    QtStatusItem item{own, "org.example.Item", strings,
                      [this](bool isOpen) { menuOpen.push_back(isOpen); }};
};

TEST_F(StatusItemTest, answersThePanel) {
    startPanel();
    ASSERT_TRUE(loopUntil([&] { return isRegistered(); }));
    stopPanel();
    startPanel();
    ASSERT_TRUE(loopUntil([&] { return isRegistered(); })) << "a panel that comes back";
    EXPECT_EQ(item.frame(), std::nullopt);

    call(NotifierItem::path, itemInterface, "Activate", {700, 20});
    ASSERT_TRUE(loopUntil([&] { return events.size() == 1; }));
    EXPECT_EQ(events.back(), StatusEvent::leftMouseUp);
    const Rect frame = item.frame().value();
    EXPECT_TRUE(frame.x < 700 && 700 < frame.x + frame.width);
    EXPECT_TRUE(frame.y < 20 && 20 < frame.y + frame.height);

    EXPECT_EQ(call(NotifierItem::path, itemInterface, "SecondaryActivate", {1, 1}).type(),
              QDBusMessage::ReplyMessage);
    call(NotifierItem::path, itemInterface, "ContextMenu", {0, 0});
    ASSERT_TRUE(loopUntil([&] { return events.size() == 2; }));
    EXPECT_EQ(events.back(), StatusEvent::rightMouseUp);
    EXPECT_EQ(item.frame(), frame) << "a panel that gives no place keeps the last one";

    EXPECT_EQ(property("Id"), "org.example.Item");
    EXPECT_EQ(property("Menu").value<QDBusObjectPath>().path(), MenuObject::path);
}

TEST_F(StatusItemTest, showsTheGlyphInTheDesktopsColor) {
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::WindowText, QColor("#fedcba"));
    QApplication::setPalette(palette);
    const auto pixels =
        std::make_shared<ImagePixels>(ImagePixels{2, 2, std::vector<std::uint32_t>(4, 0xFF000000)});
    item.setTemplateImage(Image{{}, {}, pixels}, 19);
    const auto pixmaps = qdbus_cast<QList<DbusPixmap>>(property("IconPixmap"));
    ASSERT_FALSE(pixmaps.isEmpty());
    for (const DbusPixmap& pixmap : pixmaps) {
        ASSERT_EQ(pixmap.bytes.size(), pixmap.width * pixmap.height * 4);
        const qsizetype middle = (pixmap.height / 2 * pixmap.width + pixmap.width / 2) * 4;
        EXPECT_EQ(pixmap.bytes.mid(middle, 4), QByteArray::fromHex("fffedcba")) << "network order";
    }
    EXPECT_EQ(property("IconName"), "");

    item.setTemplateImage(Image{{}, RESOURCES "/MenuBarIcon.svg", {}}, 19);
    EXPECT_EQ(property("IconName"), "MenuBarIcon-symbolic");
    EXPECT_EQ(property("IconThemePath"), RESOURCES);
}

TEST_F(StatusItemTest, givesItsMenuToThePanel) {
    startPanel();
    ASSERT_TRUE(loopUntil([&] { return isRegistered(); }));
    const DbusMenuLayout menu = layout();
    ASSERT_EQ(titles(menu),
              QStringList({"About__ Calmora", "Check for Updates…", "-", "Quit Calmora"}));
    const int about = children(menu)[0].id;
    const int update = children(menu)[1].id;
    const int quit = children(menu)[3].id;
    EXPECT_EQ(qdbus_cast<QList<QStringList>>(children(menu)[3].properties["shortcut"]),
              QList<QStringList>({{"Control", "q"}}));
    EXPECT_FALSE(children(menu)[0].properties.contains("shortcut"));

    EXPECT_EQ(tell("clicked", about), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(loopUntil([&] { return abouts == 1; }));
    EXPECT_EQ(tell("clicked", 4711), QDBusMessage::ErrorMessage);

    int notices = 0;
    // What changed is known when the menu opens, and told to the panel.
    tell("clicked", update);
    canUpdate = true;
    EXPECT_EQ(callMenu("AboutToShow", {0}).arguments().value(0), true);
    EXPECT_EQ(callMenu("AboutToShow", {0}).arguments().value(0), false);
    EXPECT_EQ(updates, 0) << "a click on a disabled entry";
    canUpdate = false;
    const BusSignal listener(panel, {MenuObject::path, menuInterface, "ItemsPropertiesUpdated", {}},
                             [&](const QDBusMessage&) { ++notices; });
    tell("opened");
    EXPECT_TRUE(loopUntil([&] { return notices == 1; })) << "a panel that only says it has opened";
    canUpdate = true;
    tell("opened");
    EXPECT_TRUE(loopUntil([&] { return notices == 2; }));
    EXPECT_TRUE(menuOpen.back());
    EXPECT_EQ(property("Title"), "") << "a tool tip lies over the menu";
    tell("closed");
    EXPECT_FALSE(menuOpen.back());
    EXPECT_EQ(property("Title"), "Calmora");
    for (const bool vanishes : {false, true}) {
        tell("opened");
        ASSERT_TRUE(menuOpen.back());
        if (vanishes) {
            stopPanel();
        } else {
            call(NotifierItem::path, itemInterface, "Activate", {3, 4});
        }
        EXPECT_TRUE(loopUntil([&] { return !menuOpen.back(); })) << "a panel that tells no close";
    }
    const auto properties = qdbus_cast<QList<DbusMenuProperties>>(
        callMenu("GetGroupProperties",
                 {QVariant::fromValue(QList<int>{update, 4711}), QStringList{"enabled", "label"}})
            .arguments()
            .value(0));
    ASSERT_EQ(properties.size(), 1);
    EXPECT_EQ(properties[0].properties,
              (QVariantMap{{"enabled", true}, {"label", "Check for Updates…"}}));

    // Some panels send events in groups only.
    const QList<DbusMenuEvent> group = {{update, "clicked"}, {4711, "clicked"}, {quit, "clicked"}};
    const QVariantList failed = callMenu("EventGroup", {QVariant::fromValue(group)}).arguments();
    EXPECT_EQ(qdbus_cast<QList<int>>(failed.value(0)), QList<int>{4711});
    EXPECT_TRUE(loopUntil([&] { return updates == 1 && quits == 1; }));

    const QVariantList groups =
        callMenu("AboutToShowGroup", {QVariant::fromValue(QList<int>{0, 4711})}).arguments();
    EXPECT_EQ(qdbus_cast<QList<int>>(groups.value(0)), QList<int>());
    EXPECT_EQ(qdbus_cast<QList<int>>(groups.value(1)), QList<int>{4711});
}

TEST_F(StatusItemTest, startsTheMenuWithThePopoverWhereALeftClickOpensIt) {
    ASSERT_TRUE(panel.registerService("org.gnome.Shell"));
    const int quit = children(layout()).back().id;
    startPanel();
    ASSERT_TRUE(loopUntil([&] { return isRegistered(); }));
    const DbusMenuLayout menu = layout();
    EXPECT_EQ(titles(menu), QStringList({"Show/Hide Calmora", "-", "About__ Calmora",
                                         "Check for Updates…", "-", "Quit Calmora"}));
    EXPECT_EQ(children(menu).back().id, quit) << "a click under way must not hit another entry";
    tell("clicked", children(menu).front().id);
    ASSERT_TRUE(loopUntil([&] { return events.size() == 1; }));
    EXPECT_EQ(events.back(), StatusEvent::leftMouseUp);

    item.setPopoverShown(true);
    EXPECT_EQ(qdbus_cast<DbusToolTip>(property("ToolTip")).title, "");
    EXPECT_EQ(property("Title"), "") << "what some panels show in its place";
    item.setPopoverShown(false); // The menu takes the focus.
    EXPECT_EQ(qdbus_cast<DbusToolTip>(property("ToolTip")).title, "Calmora");
    tell("opened");
    tell("clicked", children(menu).front().id);
    tell("closed");
    tell("closed"); // Answered after the click was handled.
    EXPECT_EQ(events.size(), 1U) << "the popover stays hidden";
    tell("clicked", children(menu).front().id);
    EXPECT_TRUE(loopUntil([&] { return events.size() == 2; }));

    item.setPopoverShown(true);
    callMenu("AboutToShowGroup", {QVariant::fromValue(QList<int>{0})});
    EXPECT_EQ(events.size(), 3U) << "a panel's menu closes the popover";
    item.setPopoverShown(false);
    EXPECT_EQ(property("Title"), "") << "a panel that does not tell that its menu is open";
}

TEST(StatusMenuTest, answersItsKeysWhileOpen) {
    int quits = 0;
    int others = 0;
    StatusMenu menu({{"Other_one\u202E &\ttwo", "o", false, [&] { ++others; }},
                     {},
                     {"Quit", "q", true, [&] { ++quits; }}});
    EXPECT_EQ(menu.actions().front()->text(), "Other_one && two");
    menu.popup({0, 0});
    QTest::keyPress(&menu, Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(menu.isVisible());
    QTest::keyPress(&menu, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(quits, 1);
    EXPECT_EQ(others, 0);
}

TEST(GlyphTest, standsOutFromTheBar) {
    const std::pair<const char*, Qt::GlobalColor> rows[] = {
        {"#ffffff", Qt::black},
        {"#c0c0c0", Qt::black},
        {"#2d2d2d", Qt::white},
        {"#3465a4", Qt::white},
    };
    for (const auto& [bar, glyph] : rows) {
        QImage icon(13, 9, QImage::Format_RGB32);
        icon.setDevicePixelRatio(1.5);
        icon.fill(glyph); // The desktop at the edge, where the scale is a fraction.
        QPainter(&icon).fillRect(QRectF(0, 0, 8, 6), QColor(bar));
        icon.setPixelColor(5, 4, Qt::red);
        EXPECT_EQ(glyphColorOn(backgroundOf(icon)), QColor(glyph)) << bar;
    }
    EXPECT_FALSE(backgroundOf({}).isValid());
}

} // namespace
} // namespace calmora
