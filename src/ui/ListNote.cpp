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
      text_(new Paragraph({}, TextStyle::caption2, ThemeColor::secondary)), buttons_(new QWidget) {
    text_->setObjectName("limitation");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::inset, Points{6}, metrics::inset, 0);
    column->setSpacing(Points{4});
    column->addWidget(text_);
    column->addWidget(buttons_);
    auto* row = new QHBoxLayout(buttons_);
    row->setContentsMargins(0, 0, 0, Points{2});
    row->setSpacing(Points{6});
    row->addStretch(1);
    const auto addButton = [&](const char* title, const char* name, auto action) {
        auto* button = new Button(uiText(title), TextStyle::caption);
        button->setObjectName(name);
        row->addWidget(button);
        connect(button, &QAbstractButton::clicked, this, action);
    };
    addButton("Not now", "declineExtension", [this] { extension_->decline(); });
    addButton("Enable", "enableExtension", [this] { extension_->enable(); });
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

void ListNote::showState() {
    const auto state = extension_ ? extension_->state() : DesktopExtension::State::none;
    const bool isOffer = state == DesktopExtension::State::offered;
    const std::string text = isOffer ? extension_->purpose()
                             : state == DesktopExtension::State::awaitsLogin
                                 ? "Log out and in once so that GNOME finds Calmora’s extension."
                                 : limitation_();
    text_->setText(text.empty() ? QString() : uiText(text.c_str()));
    buttons_->setVisible(isOffer);
    setVisible(!text.empty());
}

} // namespace calmora
