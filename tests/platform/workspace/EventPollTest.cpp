// SPDX-License-Identifier: MIT
#include "platform/linux/EventPoll.h"
#include "support/FileDescriptor.h"

#include <array>
#include <sys/eventfd.h>
#include <unistd.h>

namespace calmora {
namespace {

FileDescriptor readyDescriptor() {
    return FileDescriptor(::eventfd(1, EFD_CLOEXEC));
}

TEST(EventPoll, WatchesMayEndWhileTheyAreServed) {
    EventPoll events;
    const FileDescriptor first = readyDescriptor();
    const FileDescriptor second = readyDescriptor();
    int calls = 0;
    std::array<Subscription, 2> tokens;
    const auto endBoth = [&] {
        ++calls;
        for (Subscription& token : tokens) {
            token.reset();
        }
    };
    tokens = {events.watch(first.get(), endBoth), events.watch(second.get(), endBoth)};
    events.dispatch();
    EXPECT_EQ(calls, 1) << "the other watch had ended before its turn";
    EXPECT_FALSE(events.watch(-1, [] {}));

    std::optional<EventPoll> doomed(std::in_place);
    const Subscription destroyer = doomed->watch(first.get(), [&] { doomed.reset(); });
    const Subscription after = doomed->watch(second.get(), [&] { doomed.reset(); });
    doomed->dispatch();
    EXPECT_FALSE(doomed);
}

TEST(EventPoll, RunsWhatIsPutOff) {
    EventPoll events;
    std::string heard;
    Subscription inner;
    const Subscription outer = events.later([&] {
        heard += "a";
        inner = events.later([&] { heard += "b"; });
    });
    Subscription cancelled = events.later([&] { heard += "x"; });
    cancelled.reset();
    events.dispatch();
    EXPECT_EQ(heard, "a") << "what is put off meanwhile waits for its own turn";
    events.dispatch();
    EXPECT_EQ(heard, "ab");
}

} // namespace
} // namespace calmora
