#pragma once

#include <QScrollArea>

namespace calmora {

/// Shows a form at the full width and scrolls it vertically, also to the control that gets the
/// focus by keyboard.
class FormArea final : public QScrollArea {
  public:
    /// Owns the form.
    explicit FormArea(QWidget* form, QWidget* parent = nullptr);
};

} // namespace calmora
