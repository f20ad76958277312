// SPDX-License-Identifier: MIT
#include "platform/qt/QtRunLoop.h"

#include <QTimer>

#include <csignal>

#include <sys/signalfd.h>
#include <unistd.h>

namespace calmora {
namespace {

constexpr std::chrono::milliseconds coarseFrom{500};

struct Timer {
    QTimer timer;
    std::function<void()> action;
    Subscription alertChanges;
    bool isOverdue = false;
};

std::shared_ptr<Timer> makeTimer(std::chrono::milliseconds interval, std::function<void()> action) {
    auto timer = std::make_shared<Timer>();
    timer->action = std::move(action);
    timer->timer.setInterval(interval);
    timer->timer.setTimerType(interval < coarseFrom ? Qt::PreciseTimer : Qt::CoarseTimer);
    return timer;
}

/// The action may end its own token, so the timer is kept alive while it runs.
void run(const std::weak_ptr<Timer>& weak) {
    if (const auto timer = weak.lock()) {
        timer->isOverdue = false;
        timer->action();
    }
}

Subscription started(std::shared_ptr<Timer> timer) {
    timer->timer.start();
    return Subscription([timer = std::move(timer)] {
        timer->timer.stop();
        timer->alertChanges.reset();
    });
}

} // namespace

Subscription QtRunLoop::repeat(std::chrono::milliseconds interval, std::function<void()> action) {
    auto timer = makeTimer(interval, std::move(action));
    const std::weak_ptr weak = timer;
    QObject::connect(&timer->timer, &QTimer::timeout, &timer->timer, [this, weak] {
        if (const auto due = weak.lock(); due && alerts_.isOpen()) {
            due->isOverdue = true;
            return;
        }
        run(weak);
    });
    timer->alertChanges = alerts_.onChanged([weak](bool isOpen) {
        if (const auto due = weak.lock(); due && !isOpen && due->isOverdue) {
            QTimer::singleShot(0, &due->timer, [weak] { run(weak); });
        }
    });
    return started(std::move(timer));
}

Subscription QtRunLoop::after(std::chrono::milliseconds delay, std::function<void()> action) {
    auto timer = makeTimer(delay, std::move(action));
    timer->timer.setSingleShot(true);
    QObject::connect(&timer->timer, &QTimer::timeout, &timer->timer,
                     [weak = std::weak_ptr(timer)] { run(weak); });
    return started(std::move(timer));
}

EndingSignals::EndingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&signals, signal);
    }
    if (::pthread_sigmask(SIG_BLOCK, &signals, nullptr) == 0) {
        descriptor_ = FileDescriptor(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    }
}

void EndingSignals::onSignal(std::function<void()> action) {
    if (!descriptor_) {
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_.get(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this, action = std::move(action)] {
                         signalfd_siginfo info{};
                         while (::read(descriptor_.get(), &info, sizeof info) == sizeof info) {
                             action();
                         }
                     });
}

} // namespace calmora
