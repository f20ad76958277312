// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UseSources.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <chrono>
#include <functional>
#include <span>

namespace calmora {

/// One reading of what is in use: sends the questions, collects the answers, and ends when all are
/// there or the time is up. Ends without a word when it is destroyed. Main thread.
class UseReading {
  public:
    using Handler = std::function<void(const UseReport&)>;

    /// A question that has no answer after `timeout` leaves the report incomplete. `handler` may
    /// destroy the reading.
    UseReading(Handler handler, std::chrono::milliseconds timeout);
    UseReading(const UseReading&) = delete;
    UseReading& operator=(const UseReading&) = delete;
    ~UseReading() = default;

    /// Calls a method and passes its answer, which may be an error, to `then`, which may go on
    /// asking. Starts no service; one that runs and does not answer leaves the report incomplete.
    void call(const QDBusConnection& connection, QDBusMessage method,
              std::function<void(const QDBusMessage&)> then);

    /// Calls `proceed` every few milliseconds until it gives true.
    void repeat(std::function<bool()> proceed);

    /// Adds a use of each of these processes; 0 is none.
    void add(std::span<const ProcessId> processes, UseKind kind);

    /// The user's last input lies so far back.
    void setSinceInput(std::chrono::milliseconds time) { report_.sinceInput = time; }

    /// Some of what is in use is not known.
    void setIncomplete() { report_.isComplete = false; }

    /// Says that every source has begun. Until then the reading does not end.
    void haveAllBegun() { end(); }

  private:
    /// Ends one question, or the time in which sources begin.
    void end();
    void finish();

    Handler handler_;
    UseReport report_;
    int open_ = 1;
    bool isFinished_ = false;
    /// What is destroyed with it calls nobody.
    QObject context_;
};

} // namespace calmora
