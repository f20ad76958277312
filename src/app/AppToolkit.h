// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace calmora {

class AppSettings;
class ExtraSettings;
class Popover;
class QuitTogether;
class StatusItem;

/// What the application delegate needs of the toolkit.
class AppToolkit {
  public:
    virtual ~AppToolkit() = default;

    /// The popover with the application list in it.
    [[nodiscard]] virtual std::unique_ptr<Popover>
    makePopover(AppSettings& settings, ExtraSettings& extras, QuitTogether& together) = 0;

    /// A status item without picture, action and menu yet.
    [[nodiscard]] virtual std::unique_ptr<StatusItem> makeStatusItem() = 0;

    /// Shows or raises the About panel.
    virtual void orderFrontAboutPanel() = 0;

    /// Ends the program on the next turn of its loop.
    virtual void terminate() = 0;
};

} // namespace calmora
