#include "platform/qt/QtRunLoop.h"
#include "support/FileDescriptor.h"
#include "support/QtWaiting.h"

#include <gtest/gtest.h>

#include <QTest>

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

} // namespace
} // namespace calmora
