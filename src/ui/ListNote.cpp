// SPDX-License-Identifier: MIT
#include "ui/ListNote.h"

#include "platform/DesktopExtension.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <utility>

namespace calmora {

ListNote::ListNote(std::function<std::string()> limitation, DesktopExtension* extension,
                   QWidget* parent)
    : QWidget(parent), limitation_(std::move(limitation)), extension_(extension),
      text_(new Paragraph({}, TextStyle::caption2, ThemeColor::secondary)), buttons_(new QWidget),
      answers_(new QWidget) {
    text_->setObjectName("limitation");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::inset, Points{6}, metrics::inset, 0);
    column->setSpacing(Points{4});
    column->addWidget(text_);
    column->addWidget(buttons_);
    column->addWidget(answers_);
    const auto addRow = [this](QWidget& widget) {
        auto* row = new QHBoxLayout(&widget);
        row->setContentsMargins(0, 0, 0, Points{2});
        row->setSpacing(Points{6});
        row->addStretch(1);
        return [this, row](const char* title, const char* name, auto action) {
            auto* button = new Button(uiText(title), TextStyle::caption);
            button->setObjectName(name);
            row->addWidget(button);
            connect(button, &QAbstractButton::clicked, this, action);
            return button;
        };
    };
    const auto addButton = addRow(*buttons_);
    addButton("Not now", "declineExtension", [this] { extension_->decline(); });
    addButton("Enable", "enableExtension", [this] { extension_->enable(); });
    const auto addAnswer = addRow(*answers_);
    addAnswer("Not now", "declineOffer", [this] { answer(&NoteOffer::decline); });
    accept_ = addAnswer("Enable", "acceptOffer", [this] { answer(&NoteOffer::accept); });
    if (extension_) {
        changes_ = extension_->onChanged([this] { showState(); });
    }
    showState();
}

void ListNote::refresh() {
    if (extension_) {
        extension_->refresh();
    }
    showState();
}

void ListNote::setOffer(std::optional<NoteOffer> offer) {
    offer_ = std::move(offer);
    if (offer_) {
        accept_->setText(uiText(offer_->acceptTitle));
    }
    showState();
}

void ListNote::answer(std::function<void()> NoteOffer::* what) {
    if (const auto offer = std::exchange(offer_, std::nullopt)) {
        showState();
        (*offer.*what)();
    }
}

void ListNote::showState() {
    const auto state = extension_ ? extension_->state() : DesktopExtension::State::none;
    const bool isExtensionOffered = !offer_ && state == DesktopExtension::State::offered;
    const std::string text = offer_               ? offer_->text
                             : isExtensionOffered ? extension_->purpose()
                             : state == DesktopExtension::State::awaitsLogin
                                 ? "Log out and in once so that GNOME finds Calmora’s extension."
                                 : limitation_();
    text_->setText(text.empty() ? QString() : uiText(text.c_str()));
    buttons_->setVisible(isExtensionOffered);
    answers_->setVisible(offer_.has_value());
    setVisible(!text.empty());
}

} // namespace calmora
