#pragma once

#include "platform/EventMonitor.h"
#include "platform/qt/window/TransientWindows.h"
#include "support/Signal.h"

#include <QObject>

namespace calmora {

/// The modifiers, as the keyboard has them after each key and mouse event that reaches a window of
/// ours and whenever the keyboard comes back: a release that went elsewhere is noticed then.
/// Watches only while someone listens.
class QtEventMonitor final : public EventMonitor {
  public:
    /// `windows` must outlive the monitor.
    explicit QtEventMonitor(TransientWindows& windows);

    [[nodiscard]] Subscription
    onModifierFlagsChanged(std::function<void(ModifierFlags)> handler) override;

    /// Reads the keyboard again, as after events that were discarded.
    void reread();

  private:
    class Filter final : public QObject {
      public:
        explicit Filter(QtEventMonitor& monitor) : monitor_(monitor) {}

      protected:
        bool eventFilter(QObject* watched, QEvent* event) override;

      private:
        QtEventMonitor& monitor_;
    };

    void setListening(bool isListening);
    void note(ModifierFlags flags);

    TransientWindows& windows_;
    ModifierFlags last_;
    Signal<ModifierFlags> changed_;
    Filter filter_;
};

} // namespace calmora
