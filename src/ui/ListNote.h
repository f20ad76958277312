// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <string>

namespace calmora {

class Button;
class DesktopExtension;
class Paragraph;

/// What a note asks the user. The texts are keys.
struct NoteOffer {
    const char* text;
    const char* acceptTitle;
    std::function<void()> accept;
    std::function<void()> decline;
};

/// Below the list of the popover: an offer, what the list lacks on this desktop, or the offer of
/// the extension that it needs there. Takes no space when there is nothing to say.
class ListNote final : public QWidget {
  public:
    /// `limitation` gives the key of a text, or an empty one. `extension` may be null; else it must
    /// outlive this object.
    ListNote(std::function<std::string()> limitation, DesktopExtension* extension, QWidget* parent);

    /// Makes an offer, which stays until it is answered; absent withdraws it.
    void setOffer(std::optional<NoteOffer> offer);

    /// Says what there is to say now, and looks anew whether the extension is allowed.
    void refresh();

  private:
    void showState();
    void answer(std::function<void()> NoteOffer::* what);

    std::function<std::string()> limitation_;
    DesktopExtension* extension_;
    Paragraph* text_;
    QWidget* buttons_;
    QWidget* answers_;
    Button* accept_;
    std::optional<NoteOffer> offer_;
    Subscription changes_;
};

} // namespace calmora
