#pragma once

#include "platform/Platform.h"
#include "platform/Workspace.h"
#include "support/Subscription.h"

#include <QScrollArea>

#include <vector>

namespace calmora {

class AppSettings;
class CandidateRow;

/// The applications that can be put on the never-quit list, a row each, with a button that adds
/// it. Rows come into being when they are scrolled into sight. Follows the settings.
class CandidateList final : public QScrollArea {
  public:
    /// `settings` and the platform must outlive the list.
    CandidateList(AppSettings& settings, const Platform& platform,
                  std::vector<WorkspaceApplication> candidates, QWidget* parent = nullptr);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    /// Makes the rows in sight.
    void realize();
    /// Brings the rows there are to what the settings say.
    void refresh();

    AppSettings& settings_;
    Platform platform_;
    std::vector<WorkspaceApplication> candidates_;
    int rowHeight_;
    /// One for each candidate; null until it is in sight.
    std::vector<CandidateRow*> rows_;
    Subscription change_;
};

} // namespace calmora
