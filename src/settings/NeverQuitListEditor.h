// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"
#include "support/Subscription.h"
#include "widgets/Form.h"

#include <functional>
#include <string>
#include <vector>

class QAbstractButton;
class QLabel;

namespace calmora {

class AppSettings;
class Button;

/// Shows the never-quit list: the number of entries, a button to add one, and a row per
/// application with a button to remove it. Updates with the settings.
class NeverQuitListEditor final : public FormRows {
  public:
    /// `onAddApp` is called when the user wants to add an application. `settings` and the
    /// platform must outlive the editor.
    NeverQuitListEditor(AppSettings& settings, const Platform& platform,
                        std::function<void()> onAddApp, QWidget* parent = nullptr);

  private:
    void rebuild();
    [[nodiscard]] QWidget* makeHeader(std::function<void()> onAddApp);
    /// The row of one application; appends its button to removeButtons_.
    [[nodiscard]] QWidget* makeRow(const std::string& bundleIdentifier,
                                   const std::string& displayName);
    [[nodiscard]] int focusedRow() const;
    void focusRow(int index);

    AppSettings& settings_;
    Platform platform_;
    QLabel* count_ = nullptr;
    Button* addApp_ = nullptr;
    QWidget* emptyText_ = nullptr;
    std::vector<QWidget*> rows_;
    std::vector<QAbstractButton*> removeButtons_;
    Subscription change_;
};

} // namespace calmora
