// SPDX-License-Identifier: MIT
#include "platform/desktop/use/UseReading.h"

#include "platform/desktop/dbus/Calls.h"

#include <QTimer>

#include <algorithm>
#include <array>
#include <utility>

namespace calmora {
namespace {

constexpr std::chrono::milliseconds pause{5};

/// Whether an error means that somebody who runs did not answer.
bool isSilence(const QDBusMessage& answer) {
    constexpr std::array names{"org.freedesktop.DBus.Error.NoReply",
                               "org.freedesktop.DBus.Error.Timeout",
                               "org.freedesktop.DBus.Error.TimedOut"};
    return std::ranges::any_of(names, [&](const char* name) { return answer.errorName() == name; });
}

} // namespace

UseReading::UseReading(Handler handler, std::chrono::milliseconds timeout)
    : handler_(std::move(handler)) {
    QTimer::singleShot(timeout, Qt::PreciseTimer, &context_, [this] {
        report_.isComplete = report_.isComplete && open_ == 0;
        finish();
    });
}

void UseReading::call(const QDBusConnection& connection, QDBusMessage method,
                      std::function<void(const QDBusMessage&)> then) {
    if (!connection.isConnected()) {
        return;
    }
    ++open_;
    method.setAutoStartService(false);
    callAsync(connection, method, context_,
              [this, then = std::move(then)](const QDBusMessage& answer) {
                  if (isFinished_) {
                      return;
                  }
                  report_.isComplete = report_.isComplete && !isSilence(answer);
                  then(answer);
                  end();
              });
}

void UseReading::repeat(std::function<bool()> proceed) {
    ++open_;
    auto* timer = new QTimer(&context_);
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer, proceed = std::move(proceed)] {
        if (isFinished_ || proceed()) {
            timer->stop();
            end();
        }
    });
    timer->start(0);
    timer->setInterval(pause);
}

void UseReading::add(std::span<const ProcessId> processes, UseKind kind) {
    for (const ProcessId process : processes) {
        const ProcessUse use{process, kind};
        if (process > 0 && std::ranges::find(report_.uses, use) == report_.uses.end()) {
            report_.uses.push_back(use);
        }
    }
}

void UseReading::end() {
    if (--open_ == 0) {
        finish();
    }
}

/// The handler may destroy this object, so it is called when no code of it runs.
void UseReading::finish() {
    if (!std::exchange(isFinished_, true)) {
        QTimer::singleShot(0, &context_, [this] {
            const Handler handler = std::move(handler_);
            const UseReport report = std::move(report_);
            handler(report);
        });
    }
}

} // namespace calmora
