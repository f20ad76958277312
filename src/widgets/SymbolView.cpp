#include "widgets/SymbolView.h"

#include "widgets/Pictures.h"

#include <QPainter>

namespace calmora {

SymbolView::SymbolView(const QString& symbol, int points, ThemeColor color, QWidget* parent)
    : QWidget(parent), symbol_(symbol), points_(points), color_(color) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SymbolView::sizeHint() const {
    const int side = Theme::symbolSide(points_);
    return {side, side};
}

void SymbolView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawSymbol(painter, rect(), symbol_, Theme::symbolSide(points_),
               Theme::of(*this).color(color_));
}

} // namespace calmora
