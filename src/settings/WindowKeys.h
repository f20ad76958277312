// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace calmora {

/// Makes a window of the program handle the keys of programMenu(): quit, close (also by Escape),
/// and, where it has a button for that, minimize. Text fields handle the keys for editing
/// themselves.
void answerMenuKeys(QWidget& window);

} // namespace calmora
