#include "platform/qt/DescriptorWatch.h"
#include "platform/qt/QtRunLoop.h"
#include "support/FileDescriptor.h"
#include "support/QtWaiting.h"

#include <gtest/gtest.h>

#include <QTest>

#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace calmora {
namespace {

using std::chrono::milliseconds;

TEST(RunLoop, RunsEachKindAsOftenAsItsTokenAllows) {
    AlertSession alerts;
    QtRunLoop loop(alerts);
    std::string heard;
    int ticks = 0;
    Subscription ticking;
    ticking = loop.repeat(milliseconds{1}, [&] {
        if (++ticks == 3) {
            ticking.reset();
        }
    });
    const Subscription later = loop.after(milliseconds{5}, [&] { heard += "later"; });
    Subscription cancelled = loop.after(milliseconds{1}, [&] { heard += "cancelled"; });
    Subscription nested;
    const Subscription next = loop.nextTurn([&] {
        heard += "next ";
        nested = loop.nextTurn([&] { heard += "nested "; });
    });
    EXPECT_EQ(heard, "") << "nothing runs before the loop turns";
    cancelled.reset();
    ASSERT_TRUE(loopUntil([&] { return ticks >= 3 && heard.ends_with("later"); }));
    loopFor(std::chrono::milliseconds(10));
    EXPECT_EQ(heard, "next nested later");
    EXPECT_EQ(ticks, 3);
}

TEST(RunLoop, HoldsTimersAndDescriptorsBackWhileAnAlertIsOpen) {
    AlertSession alerts;
    QtRunLoop loop(alerts);
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
    const FileDescriptor reading(ends[0]);
    const FileDescriptor writing(ends[1]);
    std::string heard;
    const Subscription ticking = loop.repeat(milliseconds{20}, [&] { heard += "t"; });
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
    loopFor(std::chrono::milliseconds(50));
    EXPECT_EQ(heard, "");

    outer.reset();
    EXPECT_EQ(heard, "") << "not in the middle of whoever showed the alert";
    ASSERT_TRUE(loopUntil([&] { return heard.size() >= 2; }));
    EXPECT_NE(heard.find('d'), std::string::npos);
    EXPECT_NE(heard.find('t'), std::string::npos);
}

} // namespace
} // namespace calmora
