// SPDX-License-Identifier: MIT
#include "ui/ReasonButton.h"

#include "ui/QuitTexts.h"
#include "widgets/DisplayText.h"

#include <algorithm>

namespace calmora {

ReasonButton::ReasonButton(QWidget* parent)
    : Button({}, ButtonLook{.text = TextStyle::caption2, .padding = {{6}, {2}}}, parent) {
    setObjectName("reason");
    setFocusPolicy(Qt::TabFocus);
    setAutoDefault(false);
    setAccessibleDescription(uiText("Shows its window"));
    hide();
}

void ReasonButton::setReason(QuitState state, const QString& name) {
    const QString text = isReason(state) ? quitText(state) : QString();
    const QString spoken = text.isEmpty() ? text : name + QStringLiteral(", ") + text;
    if (accessibleName() != spoken) {
        setText(text);
        setAccessibleName(spoken);
    }
    setVisible(hasReason());
}

int ReasonButton::widthFor(int room) const {
    const QSize whole = sizeHint();
    return std::clamp(room, whole.height(), whole.width());
}

void ReasonButton::resizeEvent(QResizeEvent* event) {
    changeToolTip(*this, width() < sizeHint().width() ? text() : uiText("Shows its window"));
    Button::resizeEvent(event);
}

} // namespace calmora
