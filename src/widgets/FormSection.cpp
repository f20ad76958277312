#include "widgets/FormSection.h"

#include "widgets/FormMetrics.h"
#include "widgets/Paragraph.h"
#include "widgets/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

namespace calmora {
namespace {

/// Rows on a rounded face.
class Card final : public FormRows {
  public:
    explicit Card(QWidget* parent) : FormRows(parent) { setContentsMargins(0, 1, 0, 1); }

  protected:
    void paintEvent(QPaintEvent* event) override {
        const Theme theme = Theme::of(*this);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(theme.color(ThemeColor::separator));
        painter.setBrush(theme.color(ThemeColor::controlFace));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), metrics::cardRadius,
                                metrics::cardRadius);
        painter.end();
        FormRows::paintEvent(event);
    }
};

} // namespace

FormSection::FormSection(const QString& title, QWidget* parent)
    : QWidget(parent), card_(new Card(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(metrics::titleGap);
    if (!title.isEmpty()) {
        auto* heading = new Paragraph(title, TextStyle::headline, ThemeColor::primary, this);
        heading->setContentsMargins(metrics::rowInset, 0, metrics::rowInset, 0);
        layout->addWidget(heading);
    }
    layout->addWidget(card_);
    setAccessibleName(title);
}

} // namespace calmora
