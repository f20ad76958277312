#pragma once

class QWidget;

namespace calmora {

class LocalizedStrings;

/// Lets a window of the program answer to the keys of the program's menu: quit, close, and, where
/// it has a button for that, minimize. Text fields answer to the keys for editing by themselves.
void answerMenuKeys(QWidget& window, const LocalizedStrings& strings);

} // namespace calmora
