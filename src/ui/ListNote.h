// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <QWidget>

#include <functional>
#include <string>

namespace calmora {

class Button;
class DesktopExtension;
class Paragraph;

/// Below the list of the popover: what the list lacks on this desktop, or the offer of the
/// extension that it needs there. Takes no space when there is nothing to say.
class ListNote final : public QWidget {
  public:
    /// `limitation` gives the key of a text, or an empty one. `extension` may be null; else it must
    /// outlive this object.
    ListNote(std::function<std::string()> limitation, DesktopExtension* extension, QWidget* parent);

    /// Says what there is to say now, and looks anew whether the extension is allowed.
    void refresh();

  private:
    void showState();

    std::function<std::string()> limitation_;
    DesktopExtension* extension_;
    Paragraph* text_;
    QWidget* buttons_;
    Subscription changes_;
};

} // namespace calmora
