// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/ShortcutRecorder.h"
#include "widgets/Form.h"

#include <QLineEdit>
#include <QPointer>
#include <QString>

#include <memory>

class QMouseEvent;
class QToolButton;

namespace calmora {

/// The box in which the user sets one shortcut: shows it, records the next key press while it has
/// the focus, and can be cleared. Tooltip and accessible name spell the shortcut out.
class RecorderCocoa final : public QLineEdit, private RecorderControl {
  public:
    /// In points. The control is wider only if a text does not fit.
    static constexpr int minimumWidth = 130;

    /// `environment` must outlive the control. `title` precedes the shortcut in the accessible
    /// name.
    RecorderCocoa(const RecorderEnvironment& environment, KeyboardShortcuts::Name name,
                  const QString& title, ShortcutRecorder::OnChange onChange,
                  QWidget* parent = nullptr);
    ~RecorderCocoa() override;

    [[nodiscard]] const KeyboardShortcuts::Name& shortcutName() const {
        return recorder_->shortcutName();
    }

    void setShortcutName(const KeyboardShortcuts::Name& name) { recorder_->setShortcutName(name); }

    /// Whether it is recording.
    [[nodiscard]] bool isRecording() const { return recorder_->isRecording(); }

    /// Whether the control accepts the focus without a click or Tab. False for a moment after the
    /// window appears or becomes active.
    [[nodiscard]] bool canBecomeKeyView() const { return canBecomeKey_; }

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    [[nodiscard]] Size bounds() const override { return {width(), height()}; }

    [[nodiscard]] bool isInWindow() const override { return isVisible(); }

    void showText(const std::string& text, const std::string& spoken) override;
    void setPlaceholder(const std::string& text) override;
    void showClearButton(bool isShown) override;

    void clickClearButton() override { clearByUser(); }

    void monitorEvents(bool isMonitoring) override;

    void blur() override { clearFocus(); }

    void focus() override;
    void beep() override;
    std::size_t runAlert(const RecorderAlert& alert) override;

    void preventBecomingKey();
    void clearByUser();
    void focusBeside(bool isForward);
    [[nodiscard]] InputEvent inputEvent(const QKeyEvent& event) const;

    const RecorderEnvironment& environment_;
    QString title_;
    QToolButton* cancelButton_;
    bool canBecomeKey_ = false;
    bool isMonitoring_ = false;
    std::unique_ptr<ShortcutRecorder> recorder_;
};

/// A recorder with its label before it, as a row of a form.
class Recorder final : public PairRow {
  public:
    /// `environment` must outlive the row. `title` is plain text.
    Recorder(const RecorderEnvironment& environment, const QString& title,
             KeyboardShortcuts::Name name, ShortcutRecorder::OnChange onChange,
             QWidget* parent = nullptr);

    [[nodiscard]] RecorderCocoa& control() { return *control_; }

  private:
    RecorderCocoa* control_;
};

} // namespace calmora
