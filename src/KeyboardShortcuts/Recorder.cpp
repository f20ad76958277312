// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/Recorder.h"

#include "platform/KeyboardLayout.h"
#include "platform/LocalizedStrings.h"
#include "widgets/AlertPanel.h"
#include "widgets/Labels.h"
#include "widgets/Sheet.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>
#include <vector>

namespace calmora {
namespace {

constexpr Points leastHeight{24};
constexpr Points clearSide{16};
constexpr Points clearMargin{4};
constexpr Points radius{6};

/// A cross in a filled disc, in the colours of the field.
class ClearButton final : public QToolButton {
  public:
    using QToolButton::QToolButton;

    [[nodiscard]] QSize sizeHint() const override { return {clearSide, clearSide}; }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor disc = palette().color(QPalette::Text);
        disc.setAlphaF(!isEnabled() ? 0.2F : isDown() ? 0.75F : underMouse() ? 0.6F : 0.45F);
        const QRectF box = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
        painter.setPen(Qt::NoPen);
        painter.setBrush(disc);
        painter.drawEllipse(box);
        painter.setPen(QPen(palette().color(QPalette::Base), 1.4, Qt::SolidLine, Qt::RoundCap));
        const QRectF cross = box.adjusted(4, 4, -4, -4);
        painter.drawLine(cross.topLeft(), cross.bottomRight());
        painter.drawLine(cross.topRight(), cross.bottomLeft());
    }
};

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

RecorderCocoa::RecorderCocoa(const RecorderEnvironment& environment, KeyboardShortcuts::Name name,
                             const QString& title, ShortcutRecorder::OnChange onChange,
                             QWidget* parent)
    : QLineEdit(parent), environment_(environment), title_(title),
      cancelButton_(new ClearButton(this)) {
    // Read only: no caret, no input method, nothing typed, pasted or dropped.
    setReadOnly(true);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setAcceptDrops(false);
    setFrame(false);
    setAlignment(Qt::AlignCenter);
    setCursor(Qt::ArrowCursor);
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setTextMargins(clearSide + clearMargin, 0, clearSide + clearMargin, 0);
    cancelButton_->setObjectName("cancelButton");
    cancelButton_->setFocusPolicy(Qt::NoFocus);
    cancelButton_->setCursor(Qt::ArrowCursor);
    cancelButton_->setAccessibleName(toQt(environment.strings.text("clear_shortcut")));
    connect(cancelButton_, &QToolButton::clicked, this, [this] { clearByUser(); });
    RecorderControl& control = *this;
    recorder_ = std::make_unique<ShortcutRecorder>(environment, control, std::move(name),
                                                   std::move(onChange));
    resize(sizeHint());
}

RecorderCocoa::~RecorderCocoa() {
    recorder_.reset();
}

QSize RecorderCocoa::sizeHint() const {
    const auto widthOf = [this](const std::string& text) {
        return fontMetrics().horizontalAdvance(toQt(text));
    };
    const Shortcut widest =
        Shortcut::of(Key::space, {ModifierFlags::control | ModifierFlags::option |
                                  ModifierFlags::shift | ModifierFlags::command});
    const int width = std::max(
        {int{Points{minimumWidth}},
         widthOf(environment_.strings.text("record_shortcut")) + 3 * clearMargin,
         widthOf(environment_.strings.text("press_shortcut")) + 3 * clearMargin,
         widthOf(environment_.shortcuts.text().description(widest)) + clearSide + 2 * clearMargin});
    return {width, std::max<int>(leastHeight, fontMetrics().height() + Points{8})};
}

/// Receives the clicks of the whole program while recording.
bool RecorderCocoa::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonRelease || watched == cancelButton_ ||
        !watched->isWidgetType()) {
        return false;
    }
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    if (mouse.button() != Qt::LeftButton && mouse.button() != Qt::RightButton) {
        return false;
    }
    const QPoint at = mapFromGlobal(mouse.globalPosition().toPoint());
    InputEvent input;
    input.type = mouse.button() == Qt::LeftButton ? InputEventType::leftMouseUp
                                                  : InputEventType::rightMouseUp;
    input.location = {at.x(), at.y()};
    return recorder_->handle(input) == RecorderVerdict::swallow;
}

QVariant RecorderCocoa::inputMethodQuery(Qt::InputMethodQuery query) const {
    // Else a dead key would wait for the letter that it belongs to.
    return query == Qt::ImEnabled ? QVariant(false) : QLineEdit::inputMethodQuery(query);
}

bool RecorderCocoa::event(QEvent* event) {
    const bool isOfText =
        event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonDblClick ||
        event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::ContextMenu;
    // Nothing can be selected. Shortcuts of the window or the program do not act while recording.
    if (isOfText || (event->type() == QEvent::ShortcutOverride && isMonitoring_)) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress && isMonitoring_) {
        // Before Qt uses Tab to move the focus.
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    if (event->type() == QEvent::WindowActivate) {
        preventBecomingKey();
    } else if (event->type() == QEvent::WindowDeactivate && recorder_ && recorder_->isRecording()) {
        recorder_->endRecording();
        clearFocus();
    }
    return QLineEdit::event(event);
}

void RecorderCocoa::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    deselect();
    recorder_->startRecording();
}

void RecorderCocoa::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    recorder_->endRecording();
}

void RecorderCocoa::hideEvent(QHideEvent* event) {
    QLineEdit::hideEvent(event);
    recorder_->endRecording();
}

void RecorderCocoa::keyPressEvent(QKeyEvent* event) {
    if (!isMonitoring_) {
        event->ignore();
        return;
    }
    event->accept();
    const InputEvent input = inputEvent(*event);
    const QPointer<RecorderCocoa> self(this);
    if (recorder_->handle(input) == RecorderVerdict::pass && self) {
        focusBeside(!event->modifiers().testFlag(Qt::ShiftModifier));
    }
}

void RecorderCocoa::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (hasFocus()) {
        recorder_->startRecording();
    }
}

void RecorderCocoa::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool hasRing = hasFocus();
    QColor edge = palette().color(hasRing ? QPalette::Highlight : QPalette::Text);
    edge.setAlphaF(hasRing ? 1.0F : isEnabled() ? 0.28F : 0.15F);
    const double half = hasRing ? 1.0 : 0.5;
    painter.setPen(QPen(edge, 2 * half));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), radius, radius);

    const bool isEmpty = text().isEmpty();
    const bool isFaint = isEmpty && isEnabled();
    painter.setPen(palette().color(isFaint ? QPalette::PlaceholderText : QPalette::Text));
    const int trailing = isEmpty ? int{clearMargin} : clearSide + clearMargin;
    // Centred in the box if it fits, else beside the clear button.
    const bool isWide = fontMetrics().horizontalAdvance(text()) > width() - 2 * trailing;
    const QRect inner = rect().adjusted(isWide ? int{clearMargin} : trailing, 0, -trailing, 0);
    painter.drawText(inner, Qt::AlignCenter,
                     fontMetrics().elidedText(isEmpty ? placeholderText() : text(), Qt::ElideRight,
                                              inner.width()));
}

void RecorderCocoa::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    cancelButton_->setGeometry(width() - clearSide - clearMargin, (height() - clearSide) / 2,
                               clearSide, clearSide);
}

void RecorderCocoa::showEvent(QShowEvent* event) {
    QLineEdit::showEvent(event);
    preventBecomingKey();
}

void RecorderCocoa::showText(const std::string& text, const std::string& spoken) {
    QLineEdit::setText(toQt(text));
    setToolTip(toQt(spoken));
    setAccessibleName(spoken.empty() ? title_ : title_ + " " + toQt(spoken));
    update();
}

void RecorderCocoa::setPlaceholder(const std::string& text) {
    setPlaceholderText(toQt(text));
    setAccessibleDescription(placeholderText());
}

void RecorderCocoa::showClearButton(bool isShown) {
    cancelButton_->setVisible(isShown);
}

void RecorderCocoa::monitorEvents(bool isMonitoring) {
    isMonitoring_ = isMonitoring;
    if (isMonitoring) {
        qApp->installEventFilter(this);
        // So that combinations that others have grabbed arrive here only.
        grabKeyboard();
    } else {
        qApp->removeEventFilter(this);
        releaseKeyboard();
    }
}

void RecorderCocoa::focus() {
    window()->activateWindow();
    setFocus(Qt::OtherFocusReason);
    if (hasFocus()) {
        // It had the focus already, so there was no focus event.
        recorder_->startRecording();
    }
}

void RecorderCocoa::beep() {
    QApplication::beep();
}

std::size_t RecorderCocoa::runAlert(const RecorderAlert& alert) {
    const Subscription waiting =
        environment_.beginAlert ? environment_.beginAlert() : Subscription();
    // The window owns the sheet and may delete it.
    const QPointer<Sheet> sheet =
        new Sheet(isVisible() ? window() : nullptr, QAccessible::AlertMessage);
    sheet->setObjectName("recorderAlert");
    sheet->setAccessibleName(alertText(alert.messageText));
    sheet->setAccessibleDescription(alertText(alert.informativeText));
    // An alert's last button is the default one and the answer of Escape.
    Alert shown;
    shown.messageText = alert.messageText;
    shown.informativeText = alert.informativeText;
    for (auto title = alert.buttons.rbegin(); title != alert.buttons.rend(); ++title) {
        shown.buttons.push_back({.title = *title});
    }
    if (shown.buttons.empty()) {
        shown.buttons.push_back({.title = environment_.strings.text("ok")});
    }
    const std::size_t last = shown.buttons.size() - 1;
    std::size_t answer = 0;
    auto* panel = new AlertPanel(shown, environment_.icon, [&, last](std::size_t index) {
        answer = last - index;
        sheet->accept();
    });
    auto* layout = new QVBoxLayout(sheet);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel);
    sheet->setFixedSize(panel->fitWidth());
    panel->focusDefaultButton();
    sheet->exec();
    delete sheet;
    return answer;
}

void RecorderCocoa::preventBecomingKey() {
    canBecomeKey_ = false;
    setFocusPolicy(Qt::ClickFocus);
    QTimer::singleShot(0, this, [this] {
        canBecomeKey_ = true;
        setFocusPolicy(Qt::StrongFocus);
    });
}

void RecorderCocoa::clearByUser() {
    QLineEdit::setText(QString());
    update();
    recorder_->textDidChange({});
}

/// Focuses what follows or precedes in the Tab order, though the focus has already left.
void RecorderCocoa::focusBeside(bool isForward) {
    const auto step = [isForward](const QWidget* from) {
        return isForward ? from->nextInFocusChain() : from->previousInFocusChain();
    };
    for (QWidget* next = step(this); next != this; next = step(next)) {
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->isVisibleTo(window()) &&
            next->isEnabled() && next->window() == window()) {
            next->setFocus(isForward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return;
        }
    }
}

InputEvent RecorderCocoa::inputEvent(const QKeyEvent& event) const {
    InputEvent input;
    input.type = InputEventType::keyDown;
    input.keyCode = environment_.layout.keyCode(event.nativeScanCode()).value_or(-1);
    input.isRepeat = event.isAutoRepeat();
    const std::pair<Qt::KeyboardModifier, std::uint32_t> rows[] = {
        {Qt::ControlModifier, ModifierFlags::control},   {Qt::AltModifier, ModifierFlags::option},
        {Qt::ShiftModifier, ModifierFlags::shift},       {Qt::MetaModifier, ModifierFlags::command},
        {Qt::KeypadModifier, ModifierFlags::numericPad},
    };
    for (const auto& [modifier, flag] : rows) {
        input.modifiers.mask |= event.modifiers().testFlag(modifier) ? flag : 0;
    }
    return input;
}

Recorder::Recorder(const RecorderEnvironment& environment, const QString& title,
                   KeyboardShortcuts::Name name, ShortcutRecorder::OnChange onChange,
                   QWidget* parent)
    : PairRow(parent),
      control_(new RecorderCocoa(environment, std::move(name), title, std::move(onChange), this)) {
    auto* label = new Paragraph(title, TextStyle::body, ThemeColor::primary, this);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setParts(label, control_);
}

} // namespace calmora
