#pragma once

#include "platform/Geometry.h"

#include <cstddef>
#include <string>
#include <vector>

namespace calmora {

/// An alert of the recorder. The first button is the safe one and the answer of Escape.
struct RecorderAlert {
    std::string messageText;
    std::string informativeText;
    /// Empty means the single default button.
    std::vector<std::string> buttons;
};

/// What the recorder's logic needs of its view: a box like a search field, without a caret because
/// nothing can be typed.
class RecorderControl {
  public:
    virtual ~RecorderControl() = default;

    [[nodiscard]] virtual Size bounds() const = 0;

    /// Whether it is in a window.
    [[nodiscard]] virtual bool isInWindow() const = 0;

    /// `spoken` is the same in words, for tooltip and screen reader. Does not count as editing.
    virtual void showText(const std::string& text, const std::string& spoken) = 0;

    virtual void setPlaceholder(const std::string& text) = 0;
    virtual void showClearButton(bool isShown) = 0;

    /// Clicks the clear button: empties the text, which counts as editing.
    virtual void clickClearButton() = 0;

    /// Starts or stops passing all key-downs and mouse-ups of the program to the recorder.
    virtual void monitorEvents(bool isMonitoring) = 0;

    /// Removes the focus, which ends editing.
    virtual void blur() = 0;

    /// Gives the focus back to the control.
    virtual void focus() = 0;

    virtual void beep() = 0;

    /// Shows the alert, as a sheet if the control has a window. Returns the index of the chosen
    /// button.
    virtual std::size_t runAlert(const RecorderAlert& alert) = 0;
};

} // namespace calmora
