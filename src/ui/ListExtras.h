#pragma once

#include "ui/StackRow.h"

namespace calmora {

/// The line between the applications and the background section.
class DividerRow final : public StackRow {
  public:
    explicit DividerRow(QWidget* parent = nullptr);

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Separator;
    }

    static constexpr int rowHeight = 1;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The heading of the background section.
class SectionHeaderRow final : public StackRow {
  public:
    explicit SectionHeaderRow(QWidget* parent = nullptr);

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Heading; }

    /// The height of the heading with the space below it.
    [[nodiscard]] static int rowHeight();

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Shown in the list when a search finds nothing.
class EmptyStateRow final : public StackRow {
  public:
    explicit EmptyStateRow(QWidget* parent = nullptr);

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::StaticText;
    }

    [[nodiscard]] static int rowHeight();

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace calmora
