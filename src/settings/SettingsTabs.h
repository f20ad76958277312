#pragma once

#include <QTabBar>

namespace calmora {

/// The tabs of the settings window: a symbol over a label each, side by side.
class SettingsTabs final : public QTabBar {
  public:
    explicit SettingsTabs(QWidget* parent = nullptr);

    /// Adds a tab at the end.
    void add(const QString& symbol, const QString& label);

  protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;

    [[nodiscard]] QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }

    void paintEvent(QPaintEvent* event) override;
};

} // namespace calmora
