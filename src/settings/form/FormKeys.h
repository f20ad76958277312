#pragma once

class QAbstractButton;
class QKeyEvent;

namespace calmora {

/// Handles the keys that mean the same in every button of a form: Return presses it, and the
/// arrows scroll what it stands in. Left to Qt they would move the keyboard on, into a picker,
/// whose value the next press would change. False for every other key, which is the button's own.
[[nodiscard]] bool handleFormKey(QAbstractButton& button, QKeyEvent& event);

} // namespace calmora
