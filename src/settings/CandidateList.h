#pragma once

#include "platform/Platform.h"
#include "platform/Workspace.h"
#include "support/Subscription.h"

#include <QScrollArea>

#include <vector>

namespace calmora {

class AppSettings;

/// The applications that can be added to the never-quit list, one row each with a button to add
/// it. Rows are created when they scroll into view. Updates with the settings.
class CandidateList final : public QScrollArea {
  public:
    /// `settings` and the platform must outlive the list.
    CandidateList(AppSettings& settings, const Platform& platform,
                  std::vector<WorkspaceApplication> candidates, QWidget* parent = nullptr);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    class Row;

    /// Creates and places the rows in view.
    void realize();
    /// Updates the existing rows from the settings.
    void refresh();

    AppSettings& settings_;
    Platform platform_;
    std::vector<WorkspaceApplication> candidates_;
    int rowHeight_;
    /// One for each candidate; null until it comes into view.
    std::vector<Row*> rows_;
    Subscription change_;
};

} // namespace calmora
