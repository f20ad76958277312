#pragma once

#include "widgets/Theme.h"

#include <QString>
#include <QWidget>

namespace calmora {

/// A symbol in a colour of the theme; screen readers ignore it.
class SymbolView final : public QWidget {
  public:
    SymbolView(const QString& symbol, int points, ThemeColor color, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString symbol_;
    int points_;
    ThemeColor color_;
};

} // namespace calmora
