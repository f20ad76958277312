#include "widgets/AppIconView.h"

#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QPainter>

namespace calmora {

AppIconView::AppIconView(const std::optional<Image>& icon, int side, QWidget* parent)
    : QWidget(parent), icon_(icon) {
    setFixedSize(side, side);
}

void AppIconView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPixmap picture = icon_ ? imagePixmap(*icon_, width(), devicePixelRatioF()) : QPixmap();
    if (picture.isNull()) {
        drawSymbol(painter, rect(), "app.fill", width(),
                   Theme::of(*this).color(ThemeColor::secondary));
    } else {
        drawPixmap(painter, rect(), picture);
    }
}

} // namespace calmora
