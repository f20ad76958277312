// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Alerts.h"
#include "platform/qt/AlertSession.h"
#include "platform/qt/window/TransientWindows.h"

namespace calmora {

/// Alerts in the middle of the screen, above everything. The last button is the default and the
/// answer of Escape. Takes clicks with any modifier held.
class QtAlerts final : public Alerts {
  public:
    /// The references must outlive this object. `ownIcon` is shown by an alert without an icon.
    QtAlerts(TransientWindows& windows, AlertSession& session, Image ownIcon);

    /// Gives the last button's index, too, when the program is asked to end meanwhile.
    std::size_t runModal(const Alert& alert) override;

  private:
    TransientWindows& windows_;
    AlertSession& session_;
    Image ownIcon_;
};

} // namespace calmora
