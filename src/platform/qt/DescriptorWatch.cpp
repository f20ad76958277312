#include "platform/qt/DescriptorWatch.h"

#include <utility>

namespace calmora {

DescriptorWatch::DescriptorWatch(int descriptor, AlertSession& alerts,
                                 std::function<void()> dispatch)
    : notifier_(descriptor, QSocketNotifier::Read),
      alertChanges_(alerts.onChanged([this](bool isOpen) { notifier_.setEnabled(!isOpen); })) {
    notifier_.setEnabled(!alerts.isOpen());
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, std::move(dispatch));
}

} // namespace calmora
