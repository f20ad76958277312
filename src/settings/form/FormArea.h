#pragma once

#include <QScrollArea>

namespace calmora {

/// Shows a form as wide as there is room and scrolls it where it is higher, also to the control
/// that the keyboard moves to.
class FormArea final : public QScrollArea {
  public:
    /// Owns the form.
    explicit FormArea(QWidget* form, QWidget* parent = nullptr);
};

} // namespace calmora
