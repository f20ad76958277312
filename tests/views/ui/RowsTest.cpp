#include "ui/AppRowView.h"
#include "ui/BackgroundGroupRowView.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>

#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace calmora {
namespace {

using testing::ElementsAre;

AppInfo app(ProcessId pid, const std::string& name) {
    return {.pid = pid, .name = name, .bundleIdentifier = "org.example." + name};
}

QAbstractButton& button(QWidget& view, const char* name) {
    return *view.findChild<QAbstractButton*>(name);
}

QMenu* openMenu(QWidget& row) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(80, 20), QPoint(80, 20));
    QCoreApplication::sendEvent(&row, &event);
    return row.findChild<QMenu*>("rowMenu");
}

TEST(AppRowView, ShowsTheStateOfItsApplication) {
    using enum ResourceDisplay;
    const AppInfo mail = app(7, "Mail");
    const auto with = [&](auto change) {
        AppInfo changed = mail;
        change(changed);
        return changed;
    };
    const double infinite = std::numeric_limits<double>::infinity();
    const AppInfo odd = with([&](AppInfo& a) { a.cpuUsage = 0.0, a.memoryMB = infinite; });

    const struct {
        const char* what;
        AppRow row;
        const char* says;
        bool isTicked = true;
        bool canTick = true;
        bool canQuit = true;
    } cases[] = {
        {"unsampled", {.app = mail, .resourceDisplay = both}, "Mail, —, —"},
        {"CPU alone", {.app = with([](AppInfo& a) { a.cpuUsage = 180; })}, "Mail, 180.0%"},
        {"memory alone",
         {.app = with([](AppInfo& a) { a.memoryMB = 1023.6; }), .resourceDisplay = memoryOnly},
         "Mail, 1024 MB"},
        {"half a mebibyte more",
         {.app = with([](AppInfo& a) { a.memoryMB = 512.5; }), .resourceDisplay = memoryOnly},
         "Mail, 512 MB"},
        {"no number", {.app = odd, .resourceDisplay = both}, "Mail, 0.0%, —"},
        {"no figures", {.app = mail, .resourceDisplay = none}, "Mail"},
        {"unticked", {.app = with([](AppInfo& a) { a.isSelected = false; })}, "Mail, —", false},
        {"protected", {.app = mail, .isWhitelisted = true}, "Mail, Protected", false, false, false},
        {"background",
         {.app = with([](AppInfo& a) { a.isBackgroundApp = true; })},
         "Mail, —",
         false,
         false},
    };

    // One row for all: what one case showed must not stay.
    AppRowView view;
    for (const auto& c : cases) {
        AppRow row = c.row;
        view.setRow(row);
        EXPECT_EQ(view.accessibleName().toStdString(), c.says) << c.what;
        EXPECT_EQ(button(view, "tick").isChecked(), c.isTicked) << c.what;
        EXPECT_EQ(button(view, "tick").isEnabled(), c.canTick) << c.what;
        EXPECT_EQ(button(view, "quit").isVisibleTo(&view), c.canQuit) << c.what;
        EXPECT_EQ(button(view, "quit").toolTip(), "Quit") << c.what;
        row.isForceQuit = true;
        view.setRow(row);
        EXPECT_EQ(button(view, "quit").accessibleName(), "Force Quit Mail") << c.what;
    }
}

TEST(AppRowView, ReportsActionsAndChangesNothingItself) {
    std::string heard;
    AppRow row{.app = app(7, "Mail")};
    row.onToggle = [&] { heard += "toggle "; };
    row.onQuit = [&] { heard += "quit "; };
    row.onToggleWhitelist = [&] { heard += "protect "; };
    AppRowView view(row);
    view.resize(360, 44);
    view.show();
    QTest::mouseClick(&button(view, "tick"), Qt::LeftButton);
    EXPECT_TRUE(button(view, "tick").isChecked());
    QTest::mouseClick(&button(view, "quit"), Qt::LeftButton);
    QMenu* menu = openMenu(view);
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions().front()->text(), "Never Quit This App");
    menu->actions().front()->trigger();
    EXPECT_EQ(heard, "toggle quit protect ");
    delete menu;

    row.isWhitelisted = true;
    view.setRow(row);
    menu = openMenu(view);
    EXPECT_EQ(menu->actions().front()->text(), "Remove Protection");
    delete menu;
    row.isWhitelisted = false;
    row.app.isBackgroundApp = true;
    view.setRow(row);
    EXPECT_FALSE(openMenu(view));
}

TEST(AppRowView, ShowsANameAsItIsWrittenAndNeverAsMarkup) {
    const QTemporaryDir folder;
    const std::string pipe = folder.filePath("pipe").toStdString();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string markup = "<img src=\"" + pipe + "\"> &Quit";
    const auto shown = QString::fromStdString(markup);
    AppRowView view(AppRow{.app = app(1, markup + "\n\u202E")});
    view.resize(200, 44);
    view.show();
    EXPECT_TRUE(view.accessibleName().startsWith(shown));
    EXPECT_EQ(view.toolTip(), shown);

    alarm(20); // Reading the name as markup would block on the pipe.
    QHelpEvent help(QEvent::ToolTip, QPoint(80, 20), view.mapToGlobal(QPoint(80, 20)));
    QApplication::sendEvent(&view, &help);
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* window) { return !window->inherits("QTipLabel"); });
    ASSERT_EQ(windows.size(), 1);
    EXPECT_EQ(static_cast<QLabel*>(windows.front())->text(), shown);
    EXPECT_FALSE(windows.front()->grab().isNull());
    QMessageBox box(QMessageBox::Warning, QString(), shown);
    box.setInformativeText(shown);
    EXPECT_FALSE(box.grab().isNull());
    alarm(0);
    QToolTip::hideText();

    view.setRow({.app = app(1, std::string(100'000, 'x'))});
    EXPECT_LT(view.accessibleName().size(), 300);
    EXPECT_FALSE(view.grab().isNull());
}

TEST(BackgroundGroupRowView, OpensToOneIndentedRowPerMember) {
    std::vector<std::pair<std::string, ProcessId>> heard;
    BackgroundGroupRow row{.app = app(11, "Browser")};
    row.app.childProcesses = {app(11, "Helper"), app(12, "Renderer"), app(13, "Sync")};
    for (AppInfo& member : *row.app.childProcesses) {
        member.isBackgroundApp = true;
    }
    row.onQuit = [&](ProcessId pid) { heard.emplace_back("quit", pid); };
    BackgroundGroupRowView view(row);
    view.setOnExpandedChanged([&](bool) { view.resize(360, view.sizeHint().height()); });
    view.resize(view.sizeHint());
    view.show();
    auto& header = button(view, "groupHeader");
    EXPECT_EQ(header.accessibleName(), "Browser, 3");
    EXPECT_EQ(view.height(), 32);
    EXPECT_TRUE(view.findChildren<QWidget*>("appRow").isEmpty());

    QTest::mouseClick(&header, Qt::LeftButton);
    EXPECT_TRUE(view.isExpanded());
    EXPECT_EQ(view.height(), 32 + 3 * 44);
    std::map<int, QString> members;
    for (auto* member : view.findChildren<QWidget*>("appRow")) {
        const QPoint place = member->mapTo(&view, QPoint());
        EXPECT_EQ(place.x(), 20);
        EXPECT_EQ(member->width(), 340);
        members.emplace(place.y(), member->accessibleName());
        if (place.y() == 32 + 44) {
            QTest::mouseClick(&button(*member, "quit"), Qt::LeftButton);
        }
    }
    EXPECT_THAT(members, ElementsAre(std::pair(32, "Helper, —"), std::pair(76, "Renderer, —"),
                                     std::pair(120, "Sync, —")));
    EXPECT_THAT(heard, ElementsAre(std::pair("quit", 12)));

    QTest::mouseClick(&header, Qt::LeftButton);
    EXPECT_EQ(view.height(), 32);
}

} // namespace
} // namespace calmora
