// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "widgets/Controls.h"

namespace calmora {

/// Why an application has stayed, as a button that shows its window. Hidden without a reason.
class ReasonButton final : public Button {
  public:
    explicit ReasonButton(QWidget* parent);

    /// Takes the reason of the application that the user knows by this name.
    void setReason(QuitState state, const QString& name);

    /// The width for so much room: the text is cut where that is too little.
    [[nodiscard]] int widthFor(int room) const;

    /// Whether there is a reason.
    [[nodiscard]] bool hasReason() const { return !text().isEmpty(); }

  protected:
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace calmora
