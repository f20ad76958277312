// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"
#include "platform/qt/window/TransientWindows.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>

namespace calmora {

/// Discards clicks and keys by their time stamp: what happened before the call never reaches a
/// window. A click whose press is discarded loses its release too.
class QtInputGate final : public QObject, public InputGate {
  public:
    /// `windows` must outlive the gate. `onDiscard` runs after each call, to make up for the
    /// discarded events.
    explicit QtInputGate(TransientWindows& windows, std::function<void()> onDiscard = nullptr);

    void discardQueuedInput() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] bool discards(const QEvent& event);
    void setShut(bool isShut);

    TransientWindows& windows_;
    std::function<void()> onDiscard_;
    /// Time stamp of the last event to discard; absent where the next turns of the loop decide.
    std::optional<std::uint32_t> until_;
    Qt::MouseButtons pressesDiscarded_;
};

} // namespace calmora
