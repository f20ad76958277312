#include "updates/UpdateWindow.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>

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

TEST(UpdateWindow, ShowsUntrustedTextsAsTheyAreAndOpensThePage) {
    std::string heard;
    UpdateWindow window({}, [&](const std::string& page) { heard += page; });
    const Subscription closed = window.onClosed([&] { heard += "|closed|"; });
    const auto part = [](const char* name) { return shownPanel()->findChild<QWidget*>(name); };
    window.show({.title = "Looking", .text = {}, .notes = {}, .page = {}, .isRunning = true});
    ASSERT_TRUE(shownPanel());
    window.show({.title = "2", .text = {}, .notes = "<b>1 &amp; 2", .page = "https://a.org"});
    EXPECT_EQ(heard, "");
    EXPECT_EQ(qobject_cast<QLabel*>(part("title"))->textFormat(), Qt::PlainText);
    EXPECT_EQ(qobject_cast<QPlainTextEdit*>(part("notes"))->toPlainText(), "<b>1 &amp; 2");
    QTest::mouseClick(part("openPage"), Qt::LeftButton);
    EXPECT_EQ(heard, "https://a.org|closed|");
    EXPECT_FALSE(shownPanel());
}

} // namespace
} // namespace calmora
