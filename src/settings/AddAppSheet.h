// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"
#include "widgets/Sheet.h"

namespace calmora {

class AppSettings;

/// The sheet that lists the running applications and adds any of them to the never-quit list. It
/// stays open while applications are added.
class AddAppSheet final : public Sheet {
  public:
    /// Lists the applications that are running now. `settings` and the platform must outlive the
    /// sheet; `window` is the window that it is attached to.
    AddAppSheet(AppSettings& settings, const Platform& platform, QWidget* window);
};

} // namespace calmora
