#pragma once

#include "platform/Geometry.h"

#include <cstddef>
#include <string>
#include <vector>

namespace calmora {

/// A question of the recorder. The first button is the harmless one: the answer of Escape.
struct RecorderAlert {
    std::string messageText;
    std::string informativeText;
    /// Empty means the single default button.
    std::vector<std::string> buttons;
};

/// The search-field-like box on screen, as far as the recorder's decisions reach it. It never
/// shows a caret: nothing can be typed into it.
class RecorderControl {
  public:
    virtual ~RecorderControl() = default;

    [[nodiscard]] virtual Size bounds() const = 0;

    /// Whether it stands in a window.
    [[nodiscard]] virtual bool isInWindow() const = 0;

    /// `spoken` says the same in words, for tooltip and screen reader. No change of the text by
    /// this counts as editing.
    virtual void showText(const std::string& text, const std::string& spoken) = 0;

    virtual void setPlaceholder(const std::string& text) = 0;
    virtual void showClearButton(bool isShown) = 0;

    /// Clicks the clear button: empties the text, which counts as editing.
    virtual void clickClearButton() = 0;

    /// Starts or ends handing all key-downs and mouse-ups of the program to the recorder.
    virtual void monitorEvents(bool isMonitoring) = 0;

    /// Takes the focus off the control, which ends its editing.
    virtual void blur() = 0;

    /// Gives the focus to the control again.
    virtual void focus() = 0;

    virtual void beep() = 0;

    /// Shows the alert as a sheet on the control's window, or by itself without one, and returns
    /// the index of the chosen button.
    virtual std::size_t runAlert(const RecorderAlert& alert) = 0;
};

} // namespace calmora
