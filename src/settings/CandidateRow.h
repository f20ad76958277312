#pragma once

#include "platform/Workspace.h"

#include <QWidget>

#include <functional>

namespace calmora {

class Button;
class Label;

/// A running application that can be added to the never-quit list.
class CandidateRow final : public QWidget {
  public:
    CandidateRow(const WorkspaceApplication& app, std::function<void()> onAdd, QWidget* parent);

    /// Shows that the application is on the list, in place of the button, or the button again.
    void setAdded(bool isAdded);

    /// The button that adds it.
    [[nodiscard]] QWidget* addButton() const;

    [[nodiscard]] static int rowHeight();

  private:
    Label* added_;
    Button* add_;
};

} // namespace calmora
