#include "fakes/FakeRunLoop.h"

#include <algorithm>
#include <utility>

namespace calmora {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

Subscription FakeRunLoop::repeat(milliseconds interval, std::function<void()> action) {
    return add(interval, interval, std::move(action));
}

Subscription FakeRunLoop::after(milliseconds delay, std::function<void()> action) {
    return add(delay, milliseconds(0), std::move(action));
}

Subscription FakeRunLoop::nextTurn(std::function<void()> action) {
    return add(milliseconds(0), milliseconds(0), std::move(action));
}

void FakeRunLoop::turn() {
    std::vector<std::uint64_t> due;
    for (const auto& [id, entry] : *entries_) {
        if (entry.due <= time()) {
            due.push_back(id);
        }
    }
    for (const std::uint64_t id : due) {
        const auto found = entries_->find(id);
        if (found == entries_->end()) {
            continue;
        }
        const std::function<void()> action = found->second.action;
        if (found->second.interval > milliseconds(0)) {
            found->second.due = time() + found->second.interval;
        } else {
            entries_->erase(found);
        }
        action();
    }
}

void FakeRunLoop::advance(milliseconds duration) {
    const nanoseconds end = time() + duration;
    turn();
    while (time() < end) {
        nanoseconds next = end;
        for (const auto& [id, entry] : *entries_) {
            next = std::min(next, std::max(entry.due, time()));
        }
        clock_.advance(next - time());
        turn();
    }
}

std::vector<milliseconds> FakeRunLoop::timers() const {
    std::vector<milliseconds> intervals;
    for (const auto& [id, entry] : *entries_) {
        if (entry.interval > milliseconds(0)) {
            intervals.push_back(entry.interval);
        }
    }
    return intervals;
}

nanoseconds FakeRunLoop::time() const {
    return nanoseconds(clock_.ticks());
}

Subscription FakeRunLoop::add(milliseconds delay, milliseconds interval,
                              std::function<void()> action) {
    const std::uint64_t id = nextId_++;
    entries_->emplace(id, Entry{time() + delay, interval, std::move(action)});
    return Subscription([weak = std::weak_ptr(entries_), id] {
        if (const auto entries = weak.lock()) {
            entries->erase(id);
        }
    });
}

} // namespace calmora
