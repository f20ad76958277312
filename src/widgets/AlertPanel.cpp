// SPDX-License-Identifier: MIT
#include "widgets/AlertPanel.h"

#include "widgets/ContentArea.h"
#include "widgets/Controls.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace calmora {
namespace {

constexpr Points padding{20};
constexpr Points iconSide{48};
constexpr Points iconGap{16};
constexpr Points badgeSide{20};
constexpr Points textWidth{300};
constexpr int longestText = 400;
constexpr int longestWord = 24;

/// A text that a label can wrap: a word too long for a line would widen the panel beyond the
/// screen.
QString wrappable(const QString& text) {
    QString broken;
    int run = 0;
    for (const QChar c : text) {
        run = c.isSpace() ? 0 : run + 1;
        if (run > longestWord && !c.isLowSurrogate() && !c.isMark()) {
            broken.append(QChar(0x200B));
            run = 1;
        }
        broken.append(c);
    }
    return broken;
}

class AlertIcon final : public QWidget {
  public:
    AlertIcon(Image image, AlertStyle style) : image_(std::move(image)), style_(style) {
        setFixedSize(iconSide, iconSide);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        drawIcon(painter, rect(), image_, {}, Theme::of(*this).color(ThemeColor::primary));
        if (style_ != AlertStyle::critical) {
            return;
        }
        QRectF badge(0, 0, badgeSide, badgeSide);
        badge.moveBottomRight(QPointF(width(), height()));
        painter.setPen(QPen(palette().window().color(), 2));
        painter.setBrush(Theme::of(*this).buttonFace(badge, true));
        painter.drawEllipse(badge.adjusted(1, 1, -1, -1));
        const double unit = badge.width() / badgeSide.value;
        painter.setPen(QPen(Theme::of(*this).color(ThemeColor::onAccent), 2.2 * unit, Qt::SolidLine,
                            Qt::RoundCap));
        const double middle = badge.center().x();
        painter.drawLine(QPointF(middle, badge.top() + 5.5 * unit),
                         QPointF(middle, badge.top() + 10.5 * unit));
        painter.drawPoint(QPointF(middle, badge.top() + 14.3 * unit));
    }

  private:
    Image image_;
    AlertStyle style_;
};

/// The arrows lead from one button to the next, and the button with the focus shows where Return
/// goes.
class AlertPushButton final : public Button {
  public:
    explicit AlertPushButton(const AlertButton& button)
        : Button(alertText(button.title),
                 {.face = button.isDestructive ? ButtonLook::Face::red : ButtonLook::Face::outline,
                  .padding = {{17}, {7}},
                  .radius = metrics::fieldRadius,
                  .ring = metrics::focusRing,
                  .showsEveryFocus = true}) {}

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        isReturn ? click() : QPushButton::keyPressEvent(event);
    }
};

/// The width of the texts, less where the screen is small.
int textWidthFor(const QWidget& panel) {
    const int beside = 2 * padding + iconSide + iconGap;
    return boundedByScreen(panel, {textWidth + beside, 0}).width() - beside;
}

QLabel* makeText(const std::string& text, TextStyle style, ThemeColor color, const QWidget& panel) {
    auto* label = new QLabel(wrappable(alertText(text)));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(Theme::font(style));
    label->setMinimumWidth(textWidthFor(panel));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Theme::of(panel).color(color));
    label->setPalette(palette);
    return label;
}

} // namespace

QString alertText(const std::string& text) {
    const QString full = QString::fromStdString(text);
    return full.size() <= longestText
               ? full
               : full.left(longestText / 2) + QChar(0x2026) + full.right(longestText / 2);
}

AlertPanel::AlertPanel(const Alert& alert, const Image& icon,
                       const std::function<void(std::size_t)>& onAnswer) {
    setObjectName("alert");
    auto* content = new QWidget;
    auto* texts = new QVBoxLayout(content);
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(Points{6});
    auto* message = makeText(alert.messageText, TextStyle::headline, ThemeColor::primary, *this);
    message->setObjectName("messageText");
    texts->addWidget(message);
    auto* explanation =
        makeText(alert.informativeText, TextStyle::body, ThemeColor::secondary, *this);
    explanation->setObjectName("informativeText");
    texts->addWidget(explanation);
    texts->addStretch();

    auto* upper = new QHBoxLayout;
    upper->setSpacing(iconGap);
    upper->addWidget(new AlertIcon(icon, alert.style), 0, Qt::AlignTop);
    upper->addWidget(new ContentArea(content), 1);

    auto* lower = new QHBoxLayout;
    lower->setSpacing(Points{8});
    lower->addStretch();
    for (std::size_t index = alert.buttons.size(); index-- > 0;) {
        const bool isLast = index + 1 == alert.buttons.size();
        auto* button = new AlertPushButton(alert.buttons[index]);
        button->setObjectName(QString("alertButton%1").arg(index));
        connect(button, &QAbstractButton::clicked, this, [onAnswer, index] { onAnswer(index); });
        lower->addWidget(button);
        if (isLast) {
            defaultButton_ = button;
        }
    }

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(padding, padding, padding, Points{16});
    all->setSpacing(Points{18});
    all->addLayout(upper);
    all->addLayout(lower);
}

void AlertPanel::focusDefaultButton() {
    if (defaultButton_) {
        defaultButton_->setFocus(Qt::ActiveWindowFocusReason);
    }
}

QSize AlertPanel::fitWidth() {
    ensurePolished();
    setFixedWidth(sizeHint().width());
    return {width(), layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width())
                                                   : sizeHint().height()};
}

} // namespace calmora
