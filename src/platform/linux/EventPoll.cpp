// SPDX-License-Identifier: MIT
#include "platform/linux/EventPoll.h"

#include <array>
#include <cstdint>
#include <map>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <utility>

namespace calmora {

namespace {

void drain(int descriptor) {
    std::uint64_t count = 0;
    // Both eventfd and timerfd return eight bytes or nothing.
    [[maybe_unused]] const ssize_t read = ::read(descriptor, &count, sizeof count);
}

} // namespace

struct EventPoll::State {
    struct Watch {
        int descriptor = -1;
        std::shared_ptr<std::function<void()>> ready;
    };

    FileDescriptor epoll{::epoll_create1(EPOLL_CLOEXEC)};
    FileDescriptor wake{::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    std::map<std::uint64_t, Watch> watches;
    std::map<std::uint64_t, std::function<void()>> deferred;
    // Events carry this number, never the descriptor, which may be reused within one dispatch.
    std::uint64_t nextId = 1;

    bool add(int descriptor, std::uint64_t id) const {
        epoll_event event{};
        event.events = EPOLLIN;
        event.data.u64 = id;
        return ::epoll_ctl(epoll.get(), EPOLL_CTL_ADD, descriptor, &event) == 0;
    }

    void runDeferred() {
        drain(wake.get());
        // Actions deferred from now on run in the next dispatch.
        const std::uint64_t end = nextId;
        while (!deferred.empty() && deferred.begin()->first < end) {
            const auto action = std::move(deferred.begin()->second);
            deferred.erase(deferred.begin());
            action();
        }
    }
};

EventPoll::EventPoll() : state_(std::make_shared<State>()) {
    state_->add(state_->wake.get(), 0);
}

EventPoll::~EventPoll() {
    // A dispatch() on the stack has nothing left to call.
    state_->watches.clear();
    state_->deferred.clear();
}

Subscription EventPoll::watch(int descriptor, std::function<void()> ready) {
    const std::uint64_t id = state_->nextId++;
    if (!state_->add(descriptor, id)) {
        return {};
    }
    state_->watches.emplace(
        id, State::Watch{descriptor, std::make_shared<std::function<void()>>(std::move(ready))});
    return Subscription([weak = std::weak_ptr(state_), id, descriptor] {
        if (const auto state = weak.lock(); state && state->watches.erase(id) == 1) {
            ::epoll_ctl(state->epoll.get(), EPOLL_CTL_DEL, descriptor, nullptr);
        }
    });
}

Subscription EventPoll::every(std::chrono::milliseconds interval, std::function<void()> action) {
    const auto timer = std::make_shared<FileDescriptor>(
        ::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK));
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(interval);
    itimerspec spec{};
    spec.it_interval.tv_sec = seconds.count();
    spec.it_interval.tv_nsec = std::chrono::nanoseconds(interval - seconds).count();
    spec.it_value = spec.it_interval;
    if (::timerfd_settime(timer->get(), 0, &spec, nullptr) != 0) {
        return {};
    }
    auto watching = std::make_shared<Subscription>(
        watch(timer->get(), [descriptor = timer->get(), action = std::move(action)] {
            drain(descriptor);
            action();
        }));
    return Subscription([timer, watching] { watching->reset(); });
}

Subscription EventPoll::later(std::function<void()> action) {
    const std::uint64_t id = state_->nextId++;
    state_->deferred.emplace(id, std::move(action));
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(state_->wake.get(), &one, sizeof one);
    return Subscription([weak = std::weak_ptr(state_), id] {
        if (const auto state = weak.lock()) {
            state->deferred.erase(id);
        }
    });
}

int EventPoll::descriptor() const {
    return state_->epoll.get();
}

void EventPoll::dispatch() {
    const auto state = state_;
    std::array<epoll_event, 64> events{};
    const int count =
        ::epoll_wait(state->epoll.get(), events.data(), static_cast<int>(events.size()), 0);
    for (int i = 0; i < count; ++i) {
        const std::uint64_t id = events.at(static_cast<std::size_t>(i)).data.u64;
        if (id == 0) {
            state->runDeferred();
        } else if (const auto found = state->watches.find(id); found != state->watches.end()) {
            const auto ready = found->second.ready;
            (*ready)();
        }
    }
}

} // namespace calmora
