#pragma once

#include "platform/Image.h"

#include <QWidget>

#include <optional>

namespace calmora {

/// An application's icon in a square frame, or a symbol if there is no icon that can be drawn.
class AppIconView final : public QWidget {
  public:
    AppIconView(const std::optional<Image>& icon, int side, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::optional<Image> icon_;
};

} // namespace calmora
