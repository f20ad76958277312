// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>
#include <vector>

namespace calmora {

class Button;
class Label;
class SymbolButton;

/// The foot of the popover: what there is to say, Reopen while there is something to reopen, and
/// the way to the settings.
class PopoverFooter final : public QWidget {
  public:
    PopoverFooter(std::function<void()> openSettings, std::function<void()> reopen,
                  QWidget* parent);

    /// Says this, and offers Reopen or does not.
    void show(const QString& status, bool canReopen);

    /// Its controls, in the order in which Tab visits them.
    [[nodiscard]] std::vector<QWidget*> tabStops() const;

  private:
    Label* status_;
    Button* reopen_;
    SymbolButton* gear_;
};

} // namespace calmora
