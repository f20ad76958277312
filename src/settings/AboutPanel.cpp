#include "settings/AboutPanel.h"

#include "platform/LocalizedStrings.h"
#include "settings/WindowKeys.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace calmora {

namespace {

constexpr int iconSide = 96;
/// Between the margins; the title bar has room for the title.
constexpr int leastWidth = 190;

QLabel* addLabel(QVBoxLayout& layout, const char* name, const QString& text, const QFont& font) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setObjectName(name);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    layout.addWidget(label);
    return label;
}

} // namespace

AboutPanel::AboutPanel(const LocalizedStrings& strings, const Image& icon,
                       const std::optional<std::string>& version)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowCloseButtonHint) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName("aboutPanel");
    setWindowTitle(QString::fromStdString(strings.text("About Calmora")));
    answerMenuKeys(*this, strings);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(56, 28, 56, 32);
    layout->setSpacing(6);
    layout->addStrut(leastWidth);
    auto* picture = new QLabel;
    picture->setPixmap(imagePixmap(icon, iconSide, devicePixelRatio()));
    picture->setAlignment(Qt::AlignCenter);
    layout->addWidget(picture);
    layout->addSpacing(8);
    addLabel(*layout, "name", "Calmora", Theme::font(TextStyle::title, QFont::Bold));
    auto* line = addLabel(*layout, "version",
                          QString::fromStdString(fillPlaceholders(strings.text("version_label %@"),
                                                                  {version.value_or("1.0.0")})),
                          Theme::font(TextStyle::body));
    QPalette palette = line->palette();
    palette.setColor(QPalette::WindowText, Theme::of(*this).color(ThemeColor::secondary));
    line->setPalette(palette);
    line->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void AboutPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace calmora
