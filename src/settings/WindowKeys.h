#pragma once

class QWidget;

namespace calmora {

class LocalizedStrings;

/// Makes a window of the program handle the keys of the program's menu: quit, close (also by
/// Escape), and, where it has a button for that, minimize. Text fields handle the keys for editing
/// themselves.
void answerMenuKeys(QWidget& window, const LocalizedStrings& strings);

} // namespace calmora
