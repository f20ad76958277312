// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"
#include "platform/qt/window/TransientWindows.h"
#include "support/Signal.h"

#include <QObject>

namespace calmora {

/// The modifiers as Qt has them in events.
[[nodiscard]] ModifierFlags modifierFlags(Qt::KeyboardModifiers modifiers);

/// The modifiers, read after each key and mouse event that reaches a window of ours and whenever
/// the focus comes back: a release that went elsewhere is noticed then. Installs its event filter
/// only while it has listeners.
class QtEventMonitor final : public QObject, public EventMonitor {
  public:
    /// `windows` must outlive the monitor.
    explicit QtEventMonitor(TransientWindows& windows);

    [[nodiscard]] Subscription
    onModifierFlagsChanged(std::function<void(ModifierFlags)> handler) override {
        return changed_.connect(std::move(handler));
    }

    /// Reads the keyboard again, as after events that were discarded.
    void reread();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void setListening(bool isListening);
    void note(ModifierFlags flags);

    TransientWindows& windows_;
    ModifierFlags last_;
    Signal<ModifierFlags> changed_;
};

} // namespace calmora
