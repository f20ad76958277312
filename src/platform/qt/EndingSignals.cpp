#include "platform/qt/EndingSignals.h"

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>
#include <utility>

namespace calmora {

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
