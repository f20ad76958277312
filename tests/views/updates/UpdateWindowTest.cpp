#include "updates/UpdateWindow.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

namespace calmora {
namespace {

QWidget* shownPanel() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->objectName() == "updatePanel") {
            return widget;
        }
    }
    return nullptr;
}

TEST(UpdateWindow, ShowsOneAnswerAfterTheOther) {
    std::string heard;
    UpdateWindow window({}, [&](const std::string& page) { heard += page; });
    const Subscription closed = window.onClosed([&] { heard += "|closed|"; });
    const auto part = [](const char* name) { return shownPanel()->findChild<QWidget*>(name); };

    window.show({.title = "Looking", .text = {}, .notes = {}, .page = {}, .isRunning = true});
    ASSERT_TRUE(shownPanel());
    EXPECT_EQ(shownPanel()->windowModality(), Qt::NonModal);
    EXPECT_EQ(qobject_cast<QAbstractButton*>(part("close"))->text(), "Cancel");
    const int small = shownPanel()->height();

    window.show({.title = "<b>2</b>",
                 .text = "You have 1",
                 .notes = "<img src='x'>\n• 1 &amp; 2",
                 .page = "https://example.org"});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(heard, "");
    EXPECT_GT(shownPanel()->height(), small);
    EXPECT_EQ(qobject_cast<QAbstractButton*>(part("close"))->text(), "Close");
    EXPECT_EQ(qobject_cast<QLabel*>(part("title"))->textFormat(), Qt::PlainText);
    EXPECT_EQ(qobject_cast<QPlainTextEdit*>(part("notes"))->toPlainText(),
              "<img src='x'>\n• 1 &amp; 2");
    QTest::mouseClick(part("openPage"), Qt::LeftButton);
    EXPECT_EQ(heard, "https://example.org|closed|");
    EXPECT_FALSE(shownPanel());

    window.show({.title = "3", .text = {}, .notes = {}, .page = {}});
    EXPECT_FALSE(part("openPage"));
    EXPECT_FALSE(part("notes"));
    QTest::keyClick(part("close"), Qt::Key_Escape);
    EXPECT_FALSE(shownPanel());
    EXPECT_EQ(heard, "https://example.org|closed||closed|");
}

} // namespace
} // namespace calmora
