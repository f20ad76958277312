// SPDX-License-Identifier: MIT
#include "ui/AppRowView.h"

#include <sys/stat.h>
#include <unistd.h>

namespace calmora {
namespace {

AppInfo app(ProcessId pid, const std::string& name) {
    return {.pid = pid, .name = name, .bundleIdentifier = "org.example." + name};
}

QAbstractButton& button(QWidget& view, const char* name) {
    return *view.findChild<QAbstractButton*>(name);
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
    const AppInfo large = with([](AppInfo& a) { a.memoryMB = 1023.6; });
    const AppInfo hidden = with([](AppInfo& a) { a.isBackgroundApp = true; });
    const AppInfo odd = with([&](AppInfo& a) { a.cpuUsage = 0.0, a.memoryMB = infinite; });

    const struct {
        const char* what;
        AppRow row;
        const char* says;
        bool isTicked = true;
        bool canTick = true;
        bool canQuit = true;
        bool canForce = true;
    } cases[] = {
        {.what = "one of several",
         .row = {.app = with([](AppInfo& a) { a.canBeForced = false; })},
         .says = "Mail, CPU —",
         .canForce = false},
        {"unsampled", {.app = mail, .resourceDisplay = both}, "Mail, CPU —, Memory —"},
        {"CPU alone", {.app = with([](AppInfo& a) { a.cpuUsage = 180; })}, "Mail, CPU 180.0 %"},
        {"memory alone", {.app = large, .resourceDisplay = memoryOnly}, "Mail, Memory 1024 MB"},
        {"no number", {.app = odd, .resourceDisplay = both}, "Mail, CPU 0.0 %, Memory —"},
        {"unticked", {.app = with([](AppInfo& a) { a.isSelected = false; })}, "Mail, CPU —", false},
        {"protected", {.app = mail, .isWhitelisted = true}, "Mail, Protected", false, false, false},
        {"stayed",
         {.app = with([](AppInfo& a) { a.quitState = QuitState::doesNotAnswer; })},
         "Mail, Does not answer"},
        {"background", {.app = hidden}, "Mail, CPU —", false, false},
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
        EXPECT_TRUE(button(view, "quit").isEnabled()) << c.what;
        row.isForceQuit = true;
        view.setRow(row);
        EXPECT_EQ(button(view, "quit").accessibleName(), "Force Quit Mail") << c.what;
        EXPECT_EQ(button(view, "quit").isEnabled(), c.canForce) << c.what;
        EXPECT_EQ(button(view, "quit").toolTip() == "Force Quit", c.canForce) << c.what;
    }
}

TEST(AppRowView, AToolTipFollowsOption) {
    AppRowView view;
    view.setRow({.app = app(1, "Mail")});
    view.resize(360, 44);
    view.show();
    QWidget& quit = button(view, "quit");
    quit.setAttribute(Qt::WA_UnderMouse);
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), quit.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&quit, &help);
    EXPECT_EQ(QToolTip::text(), "Quit");
    view.setRow({.app = app(1, "Mail"), .isForceQuit = true});
    EXPECT_EQ(QToolTip::text(), "Force Quit");
    QToolTip::hideText();
}

TEST(AppRowView, FiguresGiveWayToTheStartOfAName) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(20);
    for (const QFont& font : {usual, large}) {
        QApplication::setFont(font);
        for (const int width : {360, 330, 270, 210}) {
            for (const bool isProtected : {false, true}) {
                AppRowView view;
                view.resize(Points{width}, view.sizeHint().height());
                view.setRow({.app = app(1, "Image Manipulation Program"),
                             .resourceDisplay = ResourceDisplay::both,
                             .isWhitelisted = isProtected});
                EXPECT_GE(view.shownName().size(), 9) << width << ' ' << font.pointSizeF();
            }
        }
    }
    QApplication::setFont(usual);
}

TEST(AppRowView, ShowsANameAsItIsWrittenAndNeverAsMarkup) {
    const QTemporaryDir folder;
    const std::string pipe = folder.filePath("pipe").toStdString();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string markup = "<img src=\"" + pipe + "\"> &Quit";
    const auto shown = QString::fromStdString(markup);
    AppRowView view;
    view.setRow({.app = app(1, markup + "\n\u202E")});
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
    alarm(0);
    QToolTip::hideText();
}

} // namespace
} // namespace calmora
