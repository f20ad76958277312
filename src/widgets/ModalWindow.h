// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

namespace calmora {

/// A widget that assistive technologies are told of as a modal window of a role.
class ModalWindow {
  public:
    explicit ModalWindow(QAccessible::Role role) : role_(role) { install(); }

    virtual ~ModalWindow() = default;

    [[nodiscard]] QAccessible::Role accessibleRole() const { return role_; }

  private:
    static void install();

    QAccessible::Role role_;
};

} // namespace calmora
